// Plays a whole game in a browser with real clicks, and again with real taps, and checks what the
// game leaves in the browser's storage.
//
//   tour.mjs PROGRAM_DIRECTORY TOUR_CLICKS OUTPUT_DIRECTORY
//
// The screenshots go to OUTPUT_DIRECTORY; their names are printed. The page's clock is set to the
// moment of the golden game, so that the cards are those the clicks are meant for.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { cpSync, mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import path from 'node:path';
import { startBrowser } from './browser.mjs';
import { serve } from './serve.mjs';

const [folder, clicks, output] = process.argv.slice(2);
const [dealtAt] = readFileSync(new URL('golden_game.txt', import.meta.url), 'utf8').split('\n', 1);
const moves = execFileSync('node', [clicks], { encoding: 'utf8' }).trim().split('\n')
  .map((line) => line.split(' '));

const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');

mkdirSync(output, { recursive: true });
const server = await serve(folder);
const browser = await startBrowser();

const stored = (page) => page.evaluate(() => localStorage.getItem('/highscore.scr'));

class Visit {
  static async begin(name, { width, height, ratio = 1, touched = false, hostile = false }) {
    const context = await browser.newContext({
      viewport: { width, height }, deviceScaleFactor: ratio, hasTouch: touched, isMobile: touched,
      locale: 'de-DE', timezoneId: 'UTC', acceptDownloads: true,
    });
    const page = await context.newPage();
    const visit = Object.assign(new Visit(), { name, page, touched, troubles: [] });
    page.on('console', (message) => visit.troubles.push(message.text()));
    page.on('pageerror', (error) => visit.troubles.push(error.stack));
    if (hostile) {
      await page.addInitScript(() => {
        Object.defineProperty(navigator, 'language', { value: 'C' });
        delete window.Worker;
      });
    }
    await page.clock.setFixedTime(dealtAt * 1000);
    await page.goto(server.address);
    await page.getByText('neues Spiel').waitFor();
    return visit;
  }

  // A screenshot, once nothing moves. Nothing is amiss then for those who can't see it; the colour of
  // the clock is the game's own.
  async shot(what) {
    const file = path.join(output, `${this.name}-${what}.png`);
    let before;
    let now;
    do {
      before = now;
      now = await this.page.screenshot({ path: file });
    } while (!before?.equals(now));
    console.log(file);
    await this.page.evaluate(axe);
    const { violations } = await this.page.evaluate(() => window.axe.run());
    const amiss = violations.flatMap(({ id, nodes }) => nodes.map(({ html }) => `${id}: ${html}`));
    assert.deepEqual(amiss.filter((one) => !/^color-contrast: .* rgb\(0, 128, 128\)/.test(one)), [], what);
  }

  async hit(label) {
    const button = this.page.locator(`button:text-is("${label}"):visible`);
    await (this.touched ? button.tap() : button.click());
  }

  async deal() {
    await this.hit('neues Spiel');
    await this.hit('Ja');
    await this.page.getByLabel('Stapel, 49 Karten').waitFor();
  }

  async play(from, to) {
    const { left, top, scale } = await this.page.evaluate(() => {
      const section = document.querySelector('.with-cards');
      const { left, top } = section.querySelector('.client').getBoundingClientRect();
      return { left, top, scale: Number(section.style.getPropertyValue('--scale')) };
    });
    for (const [kind, x, y] of moves.slice(from, to)) {
      const at = [left + x * scale, top + y * scale];
      const press = () => (this.touched ? this.page.touchscreen.tap(...at) :
        this.page.mouse.click(...at));
      await press();
      if (kind === 'double') await press();
    }
  }

  async win(enter) {
    await this.shot('start');
    assert.equal(await stored(this.page), null, 'the start wrote the list');
    await this.deal();
    await this.shot('dealt');
    await this.play(0, 60);
    await this.shot('playing');
    await this.play(60);
    const name = this.page.getByLabel('Gratulation', { exact: false });
    await name.waitFor();
    await this.page.keyboard.type('Jörg Süß');
    await this.shot('won');
    await enter(this.page);
    await name.waitFor({ state: 'hidden' });
    assert.match(await stored(this.page),
      /^[1-9]\d*,"J\xf6rg S\xfc\xdf","1\. Jan 2026 12:33"\r\n/);
    await this.page.evaluate(() => localStorage.clear());  // what a killed browser may not have kept
    await this.page.reload();
    await this.page.getByText('neues Spiel').waitFor();
    await this.hit('Bestzeiten');
    await this.page.getByText('Jörg Süß').waitFor();
    await this.shot('best-times');
    await this.hit('Ok');
  }

  async end() {
    await this.page.context().close();
    assert.deepEqual(this.troubles, []);
  }
}

// Another page takes over, which completes the entry, and then this one takes over again.
async function playElsewhere(page) {
  const other = await page.context().newPage();
  for (const [there, here] of [[other, page], [page, other]]) {
    await there.goto(server.address);
    await there.getByText('Solvanta läuft schon in einem anderen Fenster').waitFor();
    await there.getByText('Hier weiterspielen').click();
    await here.getByText('Hier weiterspielen').waitFor();
    await there.getByText('neues Spiel').waitFor();
  }
  await other.close();
}

// The list goes to a file and comes back, byte for byte; a file that is none changes nothing.
async function moveList(visit) {
  const { page } = visit;
  const [download] = await Promise.all([
    page.waitForEvent('download'), page.getByText('Bestzeiten sichern').click()]);
  assert.equal(download.suggestedFilename(), 'highscore.scr');
  const file = path.join(output, 'highscore.scr');
  await download.saveAs(file);
  const bytes = readFileSync(file);
  assert.equal(bytes.toString('latin1'), await stored(page));

  const load = async (content) => {
    const [chooser] = await Promise.all([
      page.waitForEvent('filechooser'), page.getByText('Bestzeiten laden').click()]);
    await chooser.setFiles({ name: 'x.scr', mimeType: 'text/plain', buffer: content });
  };
  await load(Buffer.from('Das ist ein Brief.'));
  await page.getByText('Diese Datei ist keine Bestzeitenliste.').waitFor();
  assert.equal(bytes.toString('latin1'), await stored(page));
  await load(Buffer.from(bytes.toString('latin1').replace('Jörg', 'Jürg'), 'latin1'));
  await visit.hit('Abbrechen');
  assert.equal(bytes.toString('latin1'), await stored(page));
  await visit.hit('Bestzeiten');
  await load(Buffer.from(bytes.toString('latin1').replace('Jörg', 'Jürg'), 'latin1'));
  await Promise.all([page.waitForEvent('download'), visit.hit('Bisherige sichern')]);
  await visit.hit('Ersetzen');
  await page.getByText('Die Bestzeiten sind geladen.').waitFor();
  assert.match(await stored(page), /"Jürg Süß"/);
  await page.getByText('Jürg Süß').waitFor();
  await visit.hit('Ok');
}

// A game played by keyboard alone as far as the first cards: the walk, a click and a double click.
async function playByKeyboard(visit) {
  const { page } = visit;
  const here = () => page.evaluate(() => document.activeElement.getAttribute('aria-label'));
  await visit.deal();
  await page.getByLabel('Stapel, 49 Karten').focus();
  await page.keyboard.press('Enter');
  assert.equal(await here(), 'Stapel, 46 Karten');
  await page.keyboard.press('ArrowRight');
  assert.match(await here(), /^Ablage: (Herz|Pik|Karo|Kreuz) /);
  await page.keyboard.press('Space');
  assert.match(await here(), /, ausgewählt$/);
  await visit.shot('keyboard');
  await page.keyboard.press('d');
  assert.doesNotMatch(await here(), /, ausgewählt$/);
  const place = await here();
  await visit.hit('Bestzeiten');
  await page.keyboard.press('Escape');
  assert.equal(await here(), place);
  await visit.hit('neues Spiel');
  await page.getByText('Neues Spiel?').click();  // beside the buttons
  await page.keyboard.press('Enter');
  await page.getByLabel('Stapel, 49 Karten').waitFor();
}

// Waits until the copy holds a file.
async function kept(page, name) {
  const isKept = (wanted) => caches.match(wanted).then(Boolean);
  while (!await page.evaluate(isKept, name)) await page.waitForTimeout(100);
}

// Without a network it starts as well, and can be ended and started again.
async function playOffline(visit) {
  const { page } = visit;
  await kept(page, 'version.json');
  await page.context().setOffline(true);
  await page.reload();
  await visit.deal();
  await visit.hit('Hilfe');
  await page.getByText('Das Ziel').waitFor();
  await visit.shot('offline');
  await page.context().setOffline(false);
  await page.getByLabel('Hilfe schließen').click();
  await visit.hit('Beenden');
  await page.getByText('Das Spiel ist beendet.').waitFor();
  await visit.shot('ended');
  await page.getByText('Neu starten').click();
  await page.getByText('neues Spiel').waitFor();
}

// Whatever keeps a file from coming is told in a sentence of its own, and can be tried again; and so
// is a full storage.
async function loadBadly() {
  const html = { contentType: 'text/html', body: '<h1>Anmeldung</h1>' };
  const page = await (await browser.newContext({ serviceWorkers: 'block' })).newPage();
  await page.addInitScript(() => {
    Storage.prototype.setItem = () => { throw new DOMException('', 'QuotaExceededError'); };
  });
  for (const [file, answer, sentence] of [
    ['Solvanta.wasm', null, 'Die Verbindung ist abgebrochen.'],
    ['Solvanta.wasm', { status: 503 }, 'Der Server gibt das Spiel zurzeit nicht heraus.'],
    ['Solvanta.wasm', html, 'Das Spiel ist beschädigt angekommen.'],
    ['Solvanta.js', null, 'Die Verbindung ist abgebrochen.'],
    ['Solvanta.js', html, 'Das Spiel ist beschädigt angekommen.'],
    ['pictures*.pack', { status: 404 }, 'Der Server gibt das Spiel zurzeit nicht heraus.'],
  ]) {
    await page.route(`**/${file}?*`, (route) => (answer ? route.fulfill(answer) : route.abort()));
    await page.goto(server.address);
    await page.getByText(sentence).waitFor();
    await page.unroute(`**/${file}?*`);
    await page.getByText('Nochmal versuchen').last().click();
    await page.getByText('neues Spiel').click();
    await page.getByText('Neues Spiel?').waitFor();
  }
  await page.getByText('Ja', { exact: true }).click();
  await page.getByText('Der Browser behält die Bestzeiten nur, solange diese Seite offen ist.').waitFor();
  await page.context().close();
}

// The first visit loads each file once, and little. A newer version is taken whole or not at all:
// its page is first another than its list says.
async function playVersions() {
  const copy = path.join(output, 'served');
  cpSync(folder, copy, { recursive: true });
  const own = await serve(copy, { compressed: false });
  const page = await (await browser.newContext()).newPage();
  await page.goto(own.address);
  await kept(page, 'version.json');
  const names = own.loaded.map(({ name }) => name).filter((name) => !name.endsWith('-32.png'));
  assert.equal(new Set(names).size, names.length, `loaded twice: ${names}`);
  assert.ok(own.loaded.reduce((sum, { size }) => sum + size, 0) < 600000);

  const list = JSON.parse(readFileSync(path.join(copy, 'version.json')));
  const newer = readFileSync(path.join(copy, 'index.html'), 'utf8').replace('<title>', '<title>Neu: ');
  const hash = `sha256-${createHash('sha256').update(newer).digest('base64')}`;
  list['./'] = { hash, tag: 'neu' };
  writeFileSync(path.join(copy, 'version.json'), JSON.stringify(list));
  for (const [html, title] of [['<h1>Anmeldung</h1>', 'Solvanta'], [newer, 'Neu: Solvanta']]) {
    writeFileSync(path.join(copy, 'index.html'), html);
    own.loaded.length = 0;
    await page.reload();
    while (own.loaded.at(-1)?.name !== '/index.html') await page.waitForTimeout(100);
    if (html === newer) await kept(page, './?neu');
    await page.reload();
    await page.getByText('neues Spiel').click();
    assert.equal(await page.title(), title);
  }
  await page.context().close();
  await own.end();
}

const large = await Visit.begin('large', { width: 1280, height: 800 });
await large.win((page) => page.keyboard.press('Enter'));
await moveList(large);
await playByKeyboard(large);
await playOffline(large);
await large.end();

await loadBadly();
await playVersions();

const phone = await Visit.begin('phone', { width: 360, height: 740, ratio: 3, touched: true, hostile: true });
await phone.win(playElsewhere);
await phone.hit('Hilfe');
await phone.shot('help');
await phone.end();

for (const [name, size] of Object.entries({
  sideways: { width: 740, height: 360, ratio: 2, touched: true },
  tiny: { width: 320, height: 200 },
})) {
  const visit = await Visit.begin(name, size);
  await visit.deal();
  await visit.shot('dealt');
  assert.equal(await visit.page.evaluate(() => [...document.querySelectorAll('button')].filter((one) => {
    const { x, y, width, height } = one.getBoundingClientRect();
    return width > 0 && document.elementFromPoint(x + width / 2, y + height / 2) !== one;
  }).length + document.documentElement.scrollHeight - innerHeight), 0, 'out of reach, or page too tall');
  await visit.end();
}
await browser.close();
await server.end();
