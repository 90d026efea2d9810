// Plays on the page as a player does, and checks what it shows, says and keeps.
//
//   tour.mjs PROGRAM_DIRECTORY TOUR_CLICKS OUTPUT_DIRECTORY KIND
//
// KIND is a browser, or what Chromium alone is asked: `phone`, `sizes`, `troubles`. Screenshots go to
// OUTPUT_DIRECTORY; their names are printed.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { cpSync, existsSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { setTimeout as sleep } from 'node:timers/promises';
import axe from 'axe-core';
import { startBrowser } from './browser.mjs';
import { serve } from './serve.mjs';
import { startWebKit } from './webkit.mjs';

const [folder, clicks, output, kind] = process.argv.slice(2);
const [dealtAt] = readFileSync(new URL('golden_game.txt', import.meta.url), 'utf8').split('\n', 1);
const moves = execFileSync('node', [clicks], { encoding: 'utf8' }).trim().split('\n')
  .map((line) => line.split(' '));

// Runs in the page before the game. Its clock stands at the golden game, so that the cards are those
// the clicks are meant for; what is said in the console is written down.
const prelude = `${axe.source};
Date = class extends Date {
  constructor(...given) { super(...(given.length ? given : [${dealtAt}000])); }
  static now() { return ${dealtAt}000; }
};
const say = (text) => { sessionStorage.said = (sessionStorage.said ?? '') + text + '\\n'; };
for (const kind of ['debug', 'error', 'info', 'log', 'warn']) console[kind] = say;
addEventListener('error', ({ message }) => say(message));
addEventListener('unhandledrejection', ({ reason }) => say(reason));
addEventListener('securitypolicyviolation', ({ blockedURI }) => say(blockedURI));`;

const served = path.join(output, kind);
cpSync(folder, served, { recursive: true });

// Changes a file of the served page, and what the list of its files says of that.
function change(name, edit, more = {}) {
  const [file, list] = [name, 'version.json'].map((one) => path.join(served, one));
  const [content, files] = [edit(readFileSync(file, 'utf8')), JSON.parse(readFileSync(list))];
  const hash = `sha256-${createHash('sha256').update(content).digest('base64')}`;
  Object.assign(files[name.replace('index.html', './')], { hash, ...more });
  writeFileSync(file, content);
  writeFileSync(list, JSON.stringify(files));
}

change('start.js', (script) => prelude + script);
const server = await serve(served, { compressed: false });
const browser = await (kind === 'webkit' ? startWebKit() : startBrowser(kind));
const stored = (page) => page.evaluate(() => localStorage.getItem('/highscore.scr'));

class Player {
  // `press` is given a place and how many times.
  constructor(page, name, press = (x, y, count = 1) => page.mouse.click(x, y, { count })) {
    Object.assign(this, { page, name, press, said: [] });
    page.on?.('console', (message) => this.said.push(message.text()));
  }

  // What the page answers, once that is something. One that goes just then answers nothing.
  async until(ask, about) {
    for (const end = Date.now() + 20000; ; await sleep(20)) {
      const answer = await this.page.evaluate(ask, about).catch(() => null);
      if (answer) return answer;
      assert.ok(Date.now() < end, `${this.name} waited in vain for ${about}: ${ask}`);
    }
  }

  // Waits for text, or for words for those who can't see.
  find(words) {
    return this.until((wanted) => document.body.innerText.includes(wanted) || [...document.querySelectorAll(
      `[aria-label*="${wanted}"]`)].some((one) => one.getClientRects().length), words);
  }

  // Presses what has these texts or names, one after the other, each once nothing lies above it.
  async hit(...names) {
    for (const name of names) await this.press(...await this.until((wanted) => {
      for (const one of document.querySelectorAll('button')) {
        const { x, y, width, height } = one.getBoundingClientRect();
        const [at, own] = [[x + width / 2, y + height / 2], [one.textContent, one.getAttribute('aria-label')]];
        if (own.includes(wanted) && document.elementFromPoint(...at) === one) return at;
      }
      return null;
    }, name));
  }

  async deal() {
    await this.hit('neues Spiel', 'Ja');
    await this.find('Stapel, 49 Karten');
  }

  // The golden game, dealt already.
  async play() {
    const { left, top, width } = await this.page.evaluate(
      () => document.querySelector('.with-cards > .client').getBoundingClientRect().toJSON());
    const scale = width / 822;
    const cards = () => this.page.evaluate(
      () => [...document.querySelectorAll('.picture')].map((one) => one.getAttribute('aria-label')).join());
    for (const [number, [click, x, y]] of moves.entries()) {
      const before = click === 'double' && await cards();
      // Presses that a busy machine holds apart are two clicks, which change nothing.
      do await this.press(left + x * scale, top + y * scale, before ? 2 : 1);
      while (before === await cards() && await sleep(600, true));
      if (number === 60) await this.shot('playing');
    }
  }

  // Waits until the copy holds a file.
  kept(name) {
    return this.until(async (wanted) => Boolean(await caches.match(wanted)), name);
  }

  // A screenshot, once these words are there. Nothing is amiss then for those who can't see it; the
  // colour of the clock is the game's own.
  async shot(what, words = '') {
    await this.find(words);
    const file = path.join(output, `${this.name}-${what}.png`);
    await this.page.screenshot({ path: file });
    console.log(file);
    const amiss = await this.page.evaluate(async () => (await window.axe.run()).violations
      .flatMap(({ id, nodes }) => nodes.map(({ html }) => `${id}: ${html}`)));
    assert.deepEqual(amiss.filter((one) => !/^color-contrast: .* rgb\(0, 128, 128\)/.test(one)), [], what);
  }

  // Nothing was said in the console.
  async end(words = '') {
    await this.find(words);
    this.said.push(await this.page.evaluate(() => sessionStorage.said ?? ''));
    assert.deepEqual(this.said, ['']);
  }
}

// A page of its own in Chromium.
async function open(name, viewport = {}, prepared = () => {}) {
  const context = await browser.createBrowserContext(
    { downloadBehavior: { policy: 'allow', downloadPath: served } });
  const page = await context.newPage();
  await page.setViewport({ width: 1280, height: 800, isMobile: viewport.hasTouch, ...viewport });
  await page.evaluateOnNewDocument(prepared);
  const tap = async (x, y, count = 1) => {
    while (count--) await page.touchscreen.tap(x, y);
  };
  return new Player(page, name, viewport.hasTouch ? tap : undefined);
}

// A whole visit; `enter` enters the name, `withList` does what there is to do with the list.
async function visit(player, enter, withList) {
  const { page } = player;
  await page.goto(server.address);
  await player.hit('neues Spiel');
  await page.keyboard.press('Escape');
  await player.shot('start');
  assert.equal(await stored(page), null, 'the start wrote the list');
  await player.deal();
  await player.play();
  await player.find('Gratulation');
  await page.keyboard.type('Jörg Süß');
  await player.shot('won');
  await enter(player);
  await player.until(() => /^[1-9]\d*,"J\xf6rg S\xfc\xdf","1\. Jan 2026 12:33"\r\n/.test(
    localStorage.getItem('/highscore.scr')));
  await page.evaluate(() => localStorage.clear());  // what a killed browser may not have kept
  await page.reload();
  await player.hit('Bestzeiten');
  await player.shot('best-times', 'Jörg Süß');
  await withList(player);
  await player.hit('Ok', 'Hilfe');
  await player.shot('help', 'Das Ziel');
  await player.hit('Hilfe schließen');
  await player.kept('version.json');
  await server.end();
  await page.reload();
  await player.deal();
  await player.hit('Beenden');
  await player.shot('ended', 'Das Spiel ist beendet.');
  await player.hit('Neu starten');
  await player.end('neues Spiel');
}

// The window in front goes where its title bar is drawn to.
async function moveWindow({ page }) {
  const place = () => page.evaluate(() => {
    const { x, y } = document.querySelector('.foremost').getBoundingClientRect();
    return [x, y];
  });
  const [x, y] = await place();
  await page.mouse.move(x + 90, y + 10);
  await page.mouse.down();
  await page.mouse.move(x + 60, y + 30);
  await page.mouse.up();
  assert.deepEqual(await place(), [x - 30, y + 20]);
}

// Another page takes over, which completes the entry, and then this one takes over again.
async function playElsewhere(here) {
  const there = new Player(await here.page.browserContext().newPage(), 'elsewhere');
  for (const [to, from] of [[there, here], [here, there]]) {
    await to.page.bringToFront();
    await to.page.goto(server.address);
    await to.hit('Hier weiterspielen');
    await from.find('Solvanta läuft schon in einem anderen Fenster');
    await to.find('neues Spiel');
  }
  await there.page.close();
}

// The list goes to a file and comes back, byte for byte; a file that is none changes nothing.
async function moveList(player) {
  const { page } = player;
  const file = path.join(served, 'highscore.scr');
  rmSync(file, { force: true });
  const [list, other] = [await stored(page), (await stored(page)).replace('Jörg', 'Jürg')];
  await player.hit('Bestzeiten sichern');
  while (!existsSync(file) || readFileSync(file, 'latin1') !== list) await sleep(20);
  for (const [content, note, left, ...answers] of [
    ['Das ist ein Brief.', 'Diese Datei ist keine Bestzeitenliste.', list],
    [other, '', list, 'Abbrechen'],
    [other, 'Die Bestzeiten sind geladen.', other, 'Bisherige sichern', 'Ersetzen'],
  ]) {
    writeFileSync(file, content, 'latin1');
    const [chooser] = await Promise.all([page.waitForFileChooser(), player.hit('Bestzeiten laden')]);
    await chooser.accept([file]);
    await player.hit(...answers);
    await player.find(note);
    assert.equal(await stored(page), left);
  }
  await player.find('Jürg Süß');
}

// On a page of any size every button in front can be reached, and nothing lies beyond it; the keyboard
// comes back from a box and a window to the place it was at.
async function playOn(name, viewport) {
  const player = await open(name, viewport);
  await player.page.goto(server.address);
  await player.deal();
  await player.page.focus('[aria-label^="Stapel"]');
  for (const buttons of [['neues Spiel', 'Nein'], ['Bestzeiten']]) {
    await player.hit(...buttons);
    await player.shot(buttons[0]);
    assert.equal(await player.page.evaluate(() => [...document.querySelectorAll(
      '.foremost button, #links > button')].filter((one) => {
      const { x, y, width, height } = one.getBoundingClientRect();
      return one.checkVisibility({ visibilityProperty: true }) &&
        document.elementFromPoint(x + width / 2, y + height * 0.9) !== one;
    }).length + document.documentElement.scrollHeight - innerHeight), 0, 'out of reach, or page too tall');
  }
  await player.hit('Ok');
  await player.until(() => document.activeElement.getAttribute('aria-label') === 'Stapel, 49 Karten');
  await player.end();
}

// Whatever keeps a file from coming is told in a sentence of its own, and can be tried again; and so
// is a full storage.
async function loadBadly() {
  const player = await open('unlucky', {}, () => {
    delete Navigator.prototype.serviceWorker;
    Storage.prototype.setItem = () => { throw new DOMException('', 'QuotaExceededError'); };
  });
  const [dropped, refused, broken] = ['Die Verbindung ist abgebrochen.',
    'Der Server gibt das Spiel zurzeit nicht heraus.', 'Das Spiel ist beschädigt angekommen.'];
  const html = { contentType: 'text/html', body: '<h1>Anmeldung</h1>' };
  let [file, answer] = [];
  await player.page.setRequestInterception(true);
  player.page.on('request', (request) => {
    if (!request.url().includes(file)) request.continue();
    else if (answer) request.respond(answer);
    else request.abort();
  });
  for (const [sentence, ...trouble] of [
    [dropped, 'Solvanta.wasm'], [broken, 'Solvanta.wasm', html], [refused, '.pack', { status: 404 }],
  ]) {
    [file, answer] = trouble;
    await player.page.goto(server.address);
    await player.find(sentence);
    file = null;
    await player.hit('Nochmal versuchen', 'neues Spiel');
  }
  await player.hit('Ja');
  await player.find('Der Browser behält die Bestzeiten nur, solange diese Seite offen ist.');
}

// The first visit loads each file once, and little, even from a server that compresses nothing. A
// newer version is taken whole or not at all: its page is first another than its list says.
async function playVersions() {
  const player = await open('versions');
  server.loaded.length = 0;
  await player.page.goto(server.address);
  await player.kept('version.json');
  const size = server.loaded.reduce((sum, one) => sum + one.size, 0) - Buffer.byteLength(prelude);
  assert.ok(size < 450000, `first load of ${size} bytes`);
  change('index.html', (page) => page.replace('<title>', '<title>Neu: '), { tag: 'neu' });
  const page = path.join(served, 'index.html');
  const newer = readFileSync(page);
  for (const [html, title] of [['<h1>Anmeldung</h1>', 'Solvanta'], [newer, 'Neu: Solvanta']]) {
    writeFileSync(page, html);
    server.loaded.length = 0;
    await player.page.reload();
    while (!server.loaded.some((one) => one.name === '/index.html')) await sleep(100);
    if (html === newer) await player.kept('./?neu');
    await player.page.reload();
    await player.hit('neues Spiel');
    assert.equal(await player.page.title(), title);
  }
}

if (kind === 'phone') {
  // No workers, and a language that no browser knows.
  await visit(await open(kind, { width: 360, height: 740, deviceScaleFactor: 3, hasTouch: true }, () => {
    Object.defineProperty(navigator, 'language', { value: 'C' });
    delete window.Worker;
  }), playElsewhere, moveList);
} else if (kind === 'sizes') {
  await playOn('large');
  await playOn('sideways', { width: 740, height: 360, deviceScaleFactor: 2, hasTouch: true });
  await playOn('upright', { width: 360, height: 640, hasTouch: true });
  await playOn('tiny', { width: 320, height: 200 });
} else if (kind === 'troubles') {
  await loadBadly();
  await playVersions();
} else {
  await visit(new Player(await browser.newPage(), kind), ({ page }) => page.keyboard.press('Enter'),
    moveWindow);
}
await browser.close();
await server.end();
