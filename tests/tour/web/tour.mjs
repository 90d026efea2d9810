// Plays a whole visit on the page with real clicks, and what goes with its kind.
//
//   tour.mjs PROGRAM_DIRECTORY TOUR_CLICKS OUTPUT_DIRECTORY KIND
//
// KIND is a browser, or `phone`: taps, no workers and a language that no browser knows, in Chromium.
// Screenshots go to OUTPUT_DIRECTORY; their names are printed.
import assert from 'node:assert/strict';
import { cpSync, existsSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { setTimeout as sleep } from 'node:timers/promises';
import { startBrowser } from './browser.mjs';
import { Player, change, folder, kind, output, prepare, stored } from './player.mjs';
import { serve } from './serve.mjs';
import { startWebKit } from './webkit.mjs';

const server = await serve(prepare(), { compressed: false });
const browser = await (kind === 'webkit' ? startWebKit() : startBrowser(kind));
const saved = path.join(output, `saved-${kind}`);
rmSync(saved, { recursive: true, force: true });

// A page of its own in Chromium.
async function open(name, viewport, prepared = () => {}) {
  const context = await browser.createBrowserContext(
    { downloadBehavior: { policy: 'allow', downloadPath: saved } });
  const page = await context.newPage();
  await page.setViewport({ isMobile: viewport.hasTouch, ...viewport });
  await page.evaluateOnNewDocument(prepared);
  const tap = async (x, y, count = 1) => {
    while (count--) await page.touchscreen.tap(x, y);
  };
  return new Player(page, name, viewport.hasTouch ? tap : undefined);
}

async function visit(player, enter, between) {
  const { page } = player;
  await page.goto(server.address);
  await player.hit('neues Spiel');
  await page.keyboard.press('Escape');
  await player.until(() => !document.querySelector('dialog[open]'));
  await player.shot('start');
  assert.equal(await stored(page), null, 'the start wrote the list');
  await player.deal();
  await player.play();
  await player.find('Gratulation');
  await page.keyboard.type('Jörg Süß');
  await player.shot('won');
  await enter();
  await player.until(() => /^[1-9]\d*,"J\xf6rg S\xfc\xdf","1\. Jan 2026 12:33"\r\n/.test(
    localStorage.getItem('/highscore.scr')));
  await page.evaluate(() => localStorage.clear());  // what a killed browser may not have kept
  await page.reload();
  await player.hit('Bestzeiten');
  await player.find('Jörg Süß');
  await player.shot('best-times');
  await between();
  await player.hit('Ok');
  await player.hit('Hilfe');
  await player.find('Das Ziel');
  await player.shot('help');
  await player.hit('Hilfe schließen');
  await kept(player, 'version.json');
  await server.end();
  await page.reload();
  await player.deal();
  await player.hit('Beenden');
  await player.find('Das Spiel ist beendet.');
  await player.shot('ended');
  await player.hit('Neu starten');
  await player.find('neues Spiel');
  await player.end();
}

// Waits until the copy holds a file.
function kept(player, name) {
  return player.until(async (wanted) => Boolean(await caches.match(wanted)), name);
}

// The window in front goes where its title bar is drawn to.
async function moveWindow({ page }) {
  const place = () => page.evaluate(() => {
    const { x, y } = document.querySelector('.foremost').getBoundingClientRect();
    return { x, y };
  });
  const { x, y } = await place();
  await page.mouse.move(x + 90, y + 10);
  await page.mouse.down();
  await page.mouse.move(x + 60, y + 30);
  await page.mouse.up();
  assert.deepEqual(await place(), { x: x - 30, y: y + 20 });
}

// Another page takes over, which completes the entry, and then this one takes over again.
async function playElsewhere(here) {
  const there = new Player(await here.page.browserContext().newPage(), 'elsewhere');
  for (const [to, from] of [[there, here], [here, there]]) {
    await to.page.bringToFront();
    await to.page.goto(server.address);
    await to.find('Solvanta läuft schon in einem anderen Fenster');
    await to.hit('Hier weiterspielen');
    await from.find('Hier weiterspielen');
    await to.find('neues Spiel');
  }
  await there.page.close();
}

// The list, which is open, goes to a file and comes back, byte for byte; a file that is none changes
// nothing.
async function moveList(player) {
  const { page } = player;
  const file = path.join(saved, 'highscore.scr');
  const [list, other] = [await stored(page), (await stored(page)).replace('Jörg', 'Jürg')];
  const save = async (button) => {
    await player.hit(button);
    while (!existsSync(file) || readFileSync(file, 'latin1') !== list) await sleep(20);
  };
  await save('Bestzeiten sichern');
  for (const [content, answer, note, left] of [
    ['Das ist ein Brief.', null, 'Diese Datei ist keine Bestzeitenliste.', list],
    [other, 'Abbrechen', '', list],
    [other, 'Ersetzen', 'Die Bestzeiten sind geladen.', other],
  ]) {
    writeFileSync(file, content, 'latin1');
    const [chooser] = await Promise.all([page.waitForFileChooser(), player.hit('Bestzeiten laden')]);
    await chooser.accept([file]);
    if (answer) await save('Bisherige sichern');
    if (answer) await player.hit(answer);
    await player.find(note);
    assert.equal(await stored(page), left);
  }
  await player.find('Jürg Süß');
}

// A game played by keyboard alone as far as the first cards: the walk, a click and a double click.
async function playByKeyboard(player) {
  const { keyboard } = player.page;
  const here = () => player.page.evaluate(() => document.activeElement.getAttribute('aria-label'));
  await player.page.focus('[aria-label="Stapel, 49 Karten"]');
  for (const [key, place] of [
    ['Enter', /^Stapel, 46 Karten$/], ['ArrowRight', /^Ablage: (Herz|Pik|Karo|Kreuz) [^,]*$/],
    ['Space', /, ausgewählt$/], ['d', /^((?!, ausgewählt$).)*$/],
  ]) {
    await keyboard.press(key);
    assert.match(await here(), place);
  }
  await player.shot('keyboard');
  const place = await here();
  await player.hit('Bestzeiten');
  await keyboard.press('Escape');
  assert.equal(await here(), place);
  await player.hit('neues Spiel');
  await player.hit('Neues Spiel?');  // beside the buttons
  await keyboard.press('Enter');
  await player.find('Stapel, 49 Karten');
}

// Whatever keeps a file from coming is told in a sentence of its own, and can be tried again; and so
// is a full storage.
async function loadBadly() {
  const player = await open('unlucky', { width: 1280, height: 800 }, () => {
    delete Navigator.prototype.serviceWorker;
    Storage.prototype.setItem = () => { throw new DOMException('', 'QuotaExceededError'); };
  });
  const [dropped, refused, broken] = ['Die Verbindung ist abgebrochen.',
    'Der Server gibt das Spiel zurzeit nicht heraus.', 'Das Spiel ist beschädigt angekommen.'];
  const html = { contentType: 'text/html', body: '<h1>Anmeldung</h1>' };
  let trouble = {};
  await player.page.setRequestInterception(true);
  player.page.on('request', (request) => {
    if (!request.url().includes(trouble.file)) request.continue();
    else if (trouble.answer) request.respond(trouble.answer);
    else request.abort();
  });
  for (const [file, answer, sentence] of [
    ['Solvanta.wasm', null, dropped], ['Solvanta.wasm', { status: 503 }, refused],
    ['Solvanta.wasm', html, broken], ['Solvanta.js', null, dropped], ['Solvanta.js', html, broken],
    ['.pack', { status: 404 }, refused],
  ]) {
    trouble = { file, answer };
    await player.page.goto(server.address);
    await player.find(sentence);
    trouble = {};
    await player.hit('Nochmal versuchen');
    await player.hit('neues Spiel');
  }
  await player.hit('Ja');
  await player.find('Der Browser behält die Bestzeiten nur, solange diese Seite offen ist.');
}

// The first visit loads each file once, and little, even by a server that compresses nothing. A newer
// version is taken whole or not at all: its page is first another than its list says.
async function playVersions() {
  const copy = path.join(output, 'versions');
  cpSync(folder, copy, { recursive: true });
  const own = await serve(copy, { compressed: false });
  const player = await open('versions', { width: 1280, height: 800 });
  await player.page.goto(own.address);
  await kept(player, 'version.json');
  const names = own.loaded.map(({ name }) => name).filter((name) => !name.endsWith('-32.png'));
  assert.equal(new Set(names).size, names.length, `loaded twice: ${names}`);
  assert.ok(own.loaded.reduce((sum, { size }) => sum + size, 0) < 450000);
  const page = path.join(copy, 'index.html');
  const newer = readFileSync(page, 'utf8').replace('<title>', '<title>Neu: ');
  const tag = change(copy, { 'index.html': newer });
  for (const [html, title] of [['<h1>Anmeldung</h1>', 'Solvanta'], [newer, 'Neu: Solvanta']]) {
    writeFileSync(page, html);
    own.loaded.length = 0;
    await player.page.reload();
    while (own.loaded.at(-1)?.name !== '/index.html') await sleep(100);
    if (html === newer) await kept(player, `./?${tag}`);
    await player.page.reload();
    await player.hit('neues Spiel');
    assert.equal(await player.page.title(), title);
  }
  await own.end();
}

// On a page of any size every button can be reached, and nothing lies beyond it.
async function playOn(name, viewport, more = () => {}) {
  const player = await open(name, viewport);
  await player.page.goto(server.address);
  await player.deal();
  await player.shot('dealt');
  assert.equal(await player.page.evaluate(() => [...document.querySelectorAll('button')].filter((one) => {
    const { x, y, width, height } = one.getBoundingClientRect();
    return width > 0 && document.elementFromPoint(x + width / 2, y + height / 2) !== one;
  }).length + document.documentElement.scrollHeight - innerHeight), 0, 'out of reach, or page too tall');
  await more(player);
  await player.end();
}

if (kind === 'phone') {
  const player = await open(kind, { width: 360, height: 740, deviceScaleFactor: 3, hasTouch: true }, () => {
    Object.defineProperty(navigator, 'language', { value: 'C' });
    delete window.Worker;
  });
  await visit(player, () => playElsewhere(player), () => moveList(player));
} else if (kind === 'sizes') {
  await playOn('large', { width: 1280, height: 800 }, playByKeyboard);
  await playOn('sideways', { width: 740, height: 360, deviceScaleFactor: 2, hasTouch: true });
  await playOn('tiny', { width: 320, height: 200 });
} else if (kind === 'troubles') {
  await loadBadly();
  await playVersions();
} else {
  const player = new Player(await browser.newPage(), kind);
  await visit(player, () => player.page.keyboard.press('Enter'), () => moveWindow(player));
}
await browser.close();
await server.end();
