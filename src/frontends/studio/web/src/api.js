// The studio's HTTP interface: actions run in order, one at a time, and the state comes by
// long poll. The token travels in an HttpOnly cookie, never through the scripts.

let chain = Promise.resolve();
const errorListeners = [];

export function onError(listener) {
  errorListeners.push(listener);
}

async function post(action) {
  const response = await fetch('/api/action', {
    method: 'POST',
    headers: { 'Content-Type': 'application/json' },
    body: JSON.stringify(action),
    credentials: 'same-origin',
  });
  const reply = await response.json().catch(() => ({ ok: false, error: response.statusText }));
  if (!response.ok) {
    for (const l of errorListeners) l(reply.error || response.statusText, action);
  }
  return reply;
}

// Queues an action behind the ones sent before; resolves with the studio's reply.
export function act(action) {
  const next = chain.then(() => post(action));
  chain = next.catch(() => {});
  return next;
}

export async function listFolder(folder) {
  const response = await fetch('/api/files?folder=' + encodeURIComponent(folder), { credentials: 'same-origin' });
  const body = await response.json();
  if (!response.ok) throw new Error(body.error || response.statusText);
  return body;
}

// Calls `apply` with every new state, for as long as the page lives.
export async function watchState(apply) {
  let since = -1;
  for (;;) {
    try {
      const response = await fetch('/api/state?since=' + since, { credentials: 'same-origin' });
      if (!response.ok) throw new Error(response.statusText);
      const state = await response.json();
      if (state.revision !== undefined && state.revision !== since) {
        since = state.revision;
        apply(state);
      }
    } catch (e) {
      await new Promise((r) => setTimeout(r, 1000));
    }
  }
}
