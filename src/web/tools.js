// The buttons of the page. Those of commands are named by their captions in the model, which enables and checks them.

const kPageUp = 33, kPageDown = 34; // virtual-key codes
const kKeyTexts = { [kPageUp]: 'Page Up', [kPageDown]: 'Page Down' };

// Icon and caption of a command; the paging buttons press keys.
const kTools = [
  ['open', 'Open'],
  ['previous', 'Previous picture', kPageUp],
  ['next', 'Next picture', kPageDown],
  ['zoom', 'Zoom'],
  ['aspect', '1:2 Aspect  Ratio'],
  ['palette', 'View Palette'],
  ['info', 'Image Info'],
  ['save', 'Save as PNG'],
  ['full', 'Full Screen'],
];
const kMenu = ['Reload', 'Close', 'Save as Bitmap', 'Copy to Clipboard', 'Count Colors', 'Load Palette',
  'Store Palette', 'Restore Palette', 'Palette of the Same Name', 'Order by Number', 'Help', 'About'];
const kDiskTools = [['Previous disk', kPageUp], ['Next disk', kPageDown]]; // with Ctrl

function icon(name) {
  const svg = document.createElementNS('http://www.w3.org/2000/svg', 'svg');
  svg.append(document.createElementNS(svg.namespaceURI, 'use'));
  svg.firstChild.setAttribute('href', `#i-${name}`);
  return svg;
}

function makeButton(content, act) {
  const button = document.createElement('button');
  button.append(content);
  button.addEventListener('click', act);
  return button;
}

// Fills `place`. `run` gets the row of a command, `press` a key, with Ctrl or not. Returns what shows the model's commands.
function makeTools(place, commands, run, press) {
  const shown = []; // buttons and rows; -1: paging
  const rowOf = (caption) => commands.findIndex((command) => command.caption === caption);
  for (const [name, caption, key] of kTools) {
    const row = rowOf(caption);
    const button = makeButton(icon(name), key ? () => press(key) : () => run(row));
    const keyText = key ? kKeyTexts[key] : commands[row].key;
    button.title = `${caption.replace('  ', ' ')} (${keyText})`;
    button.setAttribute('aria-label', caption);
    shown.push([button, row]);
    place.append(button);
  }

  const more = document.createElement('div'), menu = document.createElement('div');
  more.id = 'more';
  menu.id = 'menu';
  menu.hidden = true;
  const toggle = makeButton(icon('more'), () => { menu.hidden = !menu.hidden; });
  toggle.setAttribute('aria-label', 'More commands');
  for (const caption of kMenu) {
    const row = rowOf(caption);
    const button = makeButton(caption, () => run(row));
    const key = document.createElement('kbd');
    key.textContent = commands[row].key;
    button.append(key);
    shown.push([button, row]);
    menu.append(button);
  }
  const diskButtons = kDiskTools.map(([caption, key]) => makeButton(caption, () => press(key, true)));
  menu.append(...diskButtons);
  document.addEventListener('click', (event) => { if (!toggle.contains(event.target)) menu.hidden = true; });
  document.addEventListener('keydown', (event) => { if (event.key === 'Escape') menu.hidden = true; });
  more.append(toggle, menu);
  place.append(more);

  return (model) => {
    for (const button of diskButtons) button.disabled = !model.onDisk;
    for (const [button, row] of shown) {
      const { enabled, checked } = row >= 0 ? model.commands[row] : { enabled: model.path !== '', checked: false };
      button.disabled = !enabled;
      button.setAttribute('aria-pressed', checked);
    }
  };
}
