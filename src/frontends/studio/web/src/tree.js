// The project tree: each project with its components grouped by type.
import { el } from './dom.js';
import { act } from './api.js';

const groups = [[1, 'Modules'], [2, 'Class Modules'], [3, 'Forms'], [100, 'Document Objects']];

export function drawTree(parent, projects, active) {
  parent.replaceChildren();
  for (const p of projects) {
    const ul = el('ul', { role: 'group' });
    for (const [type, title] of groups) {
      const members = p.components.filter((c) => c.type === type);
      if (!members.length) continue;
      const items = el('ul', { role: 'group' });
      for (const c of members) {
        const on = active && active.project === p.name && active.component === c.name;
        items.append(el('li', { role: 'treeitem', class: 'comp' + (on ? ' on' : ''), text: c.name, 'data-component': c.name,
                                onclick: () => act({ do: 'open', project: p.name, component: c.name }) }));
      }
      ul.append(el('li', { role: 'treeitem', class: 'group' }, el('span', { text: title }), items));
    }
    parent.append(el('div', { class: 'project', role: 'tree' },
      el('div', { class: 'pname', text: p.name + (p.dirty ? ' *' : ''), title: p.folder }), ul));
  }
}
