// The studio in a real browser: headless Chromium driven by playwright-core opens the studio
// on a copy of the sample project, types in the code pane, adds an If block from the bar's
// menu, opens the settings dialog (screenshot kept), closes it, writes a Function with an
// argument through the Procedure and Argument Builders, inserts a fragment through the
// Fragment Builder, saves and reads the file.
//   node studio_browser_test.mjs QUILLET SOURCE_DIR ARTIFACT_DIR
import { spawn } from 'node:child_process';
import { mkdtempSync, cpSync, readFileSync, rmSync, mkdirSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { createRequire } from 'node:module';

const [quillet, sourceDir, artifacts] = process.argv.slice(2);
const require = createRequire(join(sourceDir, 'src/frontends/studio/web/package.json'));
const { chromium } = require('playwright-core');

const work = mkdtempSync(join(tmpdir(), 'quillet-browser-'));
const project = join(work, 'Invoicing');
cpSync(join(sourceDir, 'sample/Invoicing'), project, { recursive: true });
mkdirSync(artifacts, { recursive: true });

function fail(message) {
  throw new Error(message);
}

const studio = spawn(quillet, ['studio', project], { stdio: ['ignore', 'pipe', 'inherit'] });
process.on('exit', () => studio.kill('SIGTERM'));
const address = await new Promise((resolve, reject) => {
  let out = '';
  studio.stdout.on('data', (d) => {
    out += d;
    const m = out.match(/open (http:\/\/127\.0\.0\.1:\d+\/\?token=[0-9a-f]+)/);
    if (m) resolve(m[1]);
  });
  studio.on('exit', (code) => reject(new Error('the studio stopped: ' + code)));
  setTimeout(() => reject(new Error('the studio printed no address')), 20000);
});

const context = await chromium.launchPersistentContext(join(work, 'profile'), {
  executablePath: '/usr/bin/chromium',
  headless: true,
  args: ['--headless', '--no-sandbox', '--disable-gpu', '--disable-background-networking', '--no-first-run',
         '--disable-component-update', '--disable-sync'],
  viewport: { width: 1280, height: 800 },
});
let ok = false;
try {
  const page = context.pages()[0] || (await context.newPage());
  const problems = [];
  page.on('console', (m) => { if (m.type() === 'error') problems.push(m.text()); });
  page.on('pageerror', (e) => problems.push(e.message));
  await page.goto(address);
  const lines = () => page.$$eval('.cm-line', (ls) => ls.map((l) => l.textContent));
  const waitLines = async (test, what) => {
    for (let i = 0; i < 100; i++) {
      const l = await lines();
      if (test(l)) return l;
      await page.waitForTimeout(50);
    }
    fail('the code pane never showed ' + what + ':\n' + (await lines()).join('\n'));
  };

  // Open basUtilities from the tree; the pane shows its code.
  await page.click('.tree .comp[data-component="basUtilities"]');
  await page.waitForSelector('.codetitle:has-text("basUtilities")');
  let l = await waitLines((ls) => ls.includes('End Function'), 'End Function');
  const end = l.indexOf('End Function');

  // Type: the caret to the start of End Function, a new line above, a statement there.
  await page.locator('.cm-line').nth(end).click();
  await page.keyboard.press('Home');
  await page.keyboard.press('Enter');
  await page.keyboard.press('ArrowUp');
  await page.keyboard.type('x = 1', { delay: 10 });
  l = await waitLines((ls) => ls[end] === 'x = 1', '"x = 1" typed');
  await page.keyboard.press('End');
  await page.keyboard.press('Enter');
  await page.waitForSelector('.save:not([disabled])');

  // The bar's menu: Quillet > If > Then writes the block at the caret.
  await page.waitForTimeout(400);  // a few heartbeats: the bar follows the caret
  await page.click('.barbtn:has-text("Quillet")');
  await page.click('.mitem:has-text("If")');
  await page.click('.menu .menu .mitem:has-text("Then")');
  l = await waitLines((ls) => ls.some((x) => /^\s*If\s+Then$/.test(x)), 'the If block');
  const ifAt = l.findIndex((x) => /^\s*If\s+Then$/.test(x));
  const ifLine = l[ifAt];
  if (!/^\s*End If$/.test(l[ifAt + 2])) fail('no End If below the If:\n' + l.slice(ifAt - 2, ifAt + 4).join('\n'));

  // The settings dialog from the Help menu, drawn from its description.
  await page.click('.barbtn:has-text("Help")');
  await page.click('.mitem:has-text("Settings")');
  await page.waitForSelector('.form[data-form="frmSettings"]');
  await page.waitForSelector('.form[data-form="frmSettings"] .k-TabStrip button');
  await page.screenshot({ path: join(artifacts, 'studio-settings-dialog.png') });
  await page.click('.form[data-form="frmSettings"] .k-TabStrip button:has-text("Prefixes")');
  await page.waitForSelector('.form[data-form="frmSettings"] .k-TabStrip button.on:has-text("Prefixes")');
  // Escape is the dialog's Cancel button.
  await page.keyboard.press('Escape');
  await page.waitForSelector('.form[data-form="frmSettings"]', { state: 'detached' });

  // A Function with an argument through the Procedure Builder and, over it, the Argument
  // Builder: text typed, a drop-down list chosen, an option button and a combo box typed
  // key by key inside a frame.
  await page.click('.barbtn:has-text("Quillet")');
  await page.click('.mitem:has-text("Add Procedure")');
  const proc = page.locator('.form[data-form="frmProcedure"]');
  await proc.locator('.ctl[data-name="txtName"]').fill('TotalOf');
  await proc.locator('.ctl[data-name="cboProcType"] select').selectOption('Function');
  await proc.locator('.ctl[data-name="cboReturnValueType"] input:not([disabled])').waitFor();
  await proc.locator('.ctl[data-name="cmdNewArg"]').click();
  const arg = page.locator('.form[data-form="frmArgument"]');
  await arg.locator('.ctl[data-name="txtName"]').fill('vcurAmount');
  const dataType = arg.locator('.ctl[data-name="cboDataType"] input');
  await dataType.click();
  await dataType.selectText();
  await page.keyboard.type('Currency', { delay: 10 });
  await arg.locator('.ctl[data-name="optByVal(0)"] input:checked').waitFor({ state: 'detached' });
  await arg.locator('.ctl[data-name="optByVal(0)"]').click();
  await arg.locator('.ctl[data-name="optByVal(0)"] input:checked').waitFor();
  if ((await dataType.inputValue()) !== 'Currency') fail('the type typed shows ' + (await dataType.inputValue()));
  await page.screenshot({ path: join(artifacts, 'studio-argument-over-procedure.png') });
  await arg.locator('.ctl[data-name="cmdOK"]').click();
  await arg.waitFor({ state: 'detached' });
  await proc.locator('.ctl[data-name="lstArguments"] option:has-text("ByVal vcurAmount As Currency")').waitFor();
  await proc.locator('.ctl[data-name="cmdOK"]').click();
  await proc.waitFor({ state: 'detached' });
  l = await waitLines((ls) => ls.some((x) => x.startsWith('Public Function TotalOf(')), 'the new Function');
  const header = l.find((x) => x.startsWith('Public Function TotalOf('));
  if (header !== 'Public Function TotalOf(ByVal vcurAmount As Currency)') fail('the Function reads ' + header);

  // The Fragment Builder at the caret the builder left in the Function: a folder of the
  // tree, a fragment of the list, its preview in colours, its tokens, Insert.
  // The splitters are told as west-east ones (mouse pointer 9) on their way to the page,
  // as the engine will describe them; a drag of one is sent as a drag step in twips.
  const dragged = [];
  await page.route('**/api/state*', async (route) => {
    // A long poll still under way when the route is removed ends quietly.
    const response = await route.fetch().catch(() => null);
    if (!response) return;
    const state = await response.json();
    for (const f of state.forms || [])
      for (const c of f.controls) if (f.form === 'frmFragments' && c.name === 'imgSplitter') c.mousePointer = 9;
    await route.fulfill({ response, json: state }).catch(() => {});
  });
  await page.route('**/api/action', async (route) => {
    const action = route.request().postDataJSON();
    if (!action.drag) return route.continue();
    dragged.push(action);
    const response = await route.fetch();
    // An engine that knows no drag step yet refuses it; the page is told it went through.
    if (response.status() === 400) return route.fulfill({ status: 200, json: { ok: true } });
    return route.fulfill({ response });
  });
  const insert = page.locator('.barbtn[aria-label="Insert Fragment..."]');
  await insert.waitFor();
  await insert.click();
  const frag = page.locator('.form[data-form="frmFragments"]');
  const splitter = frag.locator('.ctl[data-name="imgSplitter"]');
  await frag.locator('.ctl.splitter[data-name="imgSplitter"]').waitFor();
  if ((await splitter.evaluate((e) => getComputedStyle(e).cursor)) !== 'ew-resize') fail('the splitter shows no west-east cursor');
  // The dialog may still be settling (its tree and list fill after it opens): a gesture
  // that began beside the bar, as a user's would, is made again from where the bar is now.
  for (let attempt = 0; attempt < 3 && !dragged.length; attempt++) {
    const at = await splitter.boundingBox();
    await page.mouse.move(at.x + at.width / 2, at.y + Math.min(40, at.height / 2));
    await page.mouse.down();
    await page.mouse.move(at.x + at.width / 2 + 15, at.y + 45, { steps: 3 });
    await page.mouse.move(at.x + at.width / 2 + 30, at.y + 50, { steps: 3 });
    await page.mouse.up();
    for (let i = 0; i < 100 && !dragged.length; i++) await page.waitForTimeout(20);
  }
  const expected = { do: 'form', form: 'frmFragments', drag: { control: 'imgSplitter', by: [450, 0] } };
  if (JSON.stringify(dragged) !== JSON.stringify([expected])) fail('the drag sent ' + JSON.stringify(dragged));
  await page.unrouteAll({ behavior: 'ignoreErrors' });
  await frag.locator('.k-TreeView .node:text-is("Loops")').click();
  await frag.locator('.k-ListView td:text-is("Do Loop With Guard")').click();
  await frag.locator('.k-ListBox option:text-is("{LONG:MaxRounds=1000}")').waitFor();
  const colours = await frag.locator('.k-RichTextBox span').evaluateAll((spans) => new Set(spans.map((x) => x.style.color)).size);
  if (colours < 3) fail('the preview shows ' + colours + ' colours');
  await frag.locator('.ctl[data-name="cmdOk"]').click();
  await frag.waitFor({ state: 'detached' });
  l = await waitLines((ls) => ls.some((x) => x.trim() === 'If lngRound > clngMaxRounds Then Exit Do'), 'the fragment');
  const fnAt = l.findIndex((x) => x.startsWith('Public Function TotalOf('));
  const endAt = l.findIndex((x, i) => i > fnAt && x === 'End Function');
  if (!l.slice(fnAt, endAt).some((x) => x.trim() === 'Loop Until fDone')) fail('the fragment is not inside TotalOf');

  // Save: the file on disk holds what the pane shows.
  await page.click('.save');
  await page.waitForSelector('.save[disabled]');
  const file = readFileSync(join(project, 'basUtilities.bas'), 'latin1').replace(/\r\n/g, '\n');
  const shown = (await lines()).join('\n');
  if (!file.includes('x = 1\n')) fail('the saved file lacks the typed line');
  if (!file.includes(ifLine + '\n')) fail('the saved file lacks the If block');
  if (!file.includes(header + '\n')) fail('the saved file lacks the Function');
  if (!file.endsWith(shown + '\n') && !file.includes(shown)) fail('the saved file differs from the pane');
  if (problems.length) fail('the page reported errors:\n' + problems.join('\n'));
  ok = true;
  console.log('studio browser test: passed');
} finally {
  await context.close();
  studio.kill('SIGTERM');
  rmSync(work, { recursive: true, force: true });
}
process.exit(ok ? 0 : 1);
