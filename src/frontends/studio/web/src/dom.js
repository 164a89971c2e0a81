// Small helpers for building the page without markup strings.

export function el(tag, props = {}, ...children) {
  const e = document.createElement(tag);
  for (const [k, v] of Object.entries(props)) {
    if (k === 'class') e.className = v;
    else if (k.startsWith('on')) e.addEventListener(k.slice(2), v);
    else if (k === 'text') e.textContent = v;
    else e.setAttribute(k, v);
  }
  for (const c of children) if (c !== null && c !== undefined) e.append(c);
  return e;
}

// A caption with its access key ("&Add Variable...") as text with the key underlined;
// returns the element and the key in lower case (or '').
export function captionNode(caption) {
  const span = document.createElement('span');
  let key = '';
  for (let i = 0; i < caption.length; i++) {
    const c = caption[i];
    if (c === '&' && i + 1 < caption.length) {
      const next = caption[++i];
      if (next === '&') {
        span.append('&');
      } else {
        if (!key) key = next.toLowerCase();
        const u = document.createElement('u');
        u.textContent = next;
        span.append(u);
      }
    } else {
      span.append(c);
    }
  }
  return { node: span, key };
}

export function plainCaption(caption) {
  return caption.replace(/&(.)/g, '$1');
}

// Twips, as forms measure, to pixels.
export const px = (twips) => Math.round(twips / 15) + 'px';

// A list entry as the engine describes it: {text, itemData}, or a bare text.
export const entryText = (entry) => (typeof entry === 'string' ? entry : entry.text);

// A colour as forms keep it (red in the low byte) as CSS.
export const cssColour = (bgr) => `rgb(${bgr & 255},${(bgr >> 8) & 255},${(bgr >> 16) & 255})`;
