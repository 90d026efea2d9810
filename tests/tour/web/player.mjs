// What a player does on the page and finds there, in any browser: little is asked of its client.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { cpSync, readFileSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import path from 'node:path';
import { setTimeout as sleep } from 'node:timers/promises';

export const [folder, clicks, output, kind] = process.argv.slice(2);
const [dealtAt] = readFileSync(new URL('golden_game.txt', import.meta.url), 'utf8').split('\n', 1);
const moves = execFileSync('node', [clicks], { encoding: 'utf8' }).trim().split('\n')
  .map((line) => line.split(' '));

// Runs in the page before the game. Its clock stands at the golden game, so that the cards are those
// the clicks are meant for; what is said in the console is written down.
const prelude = `
${readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8')}
Date = class extends Date {
  constructor(...given) { super(...(given.length ? given : [${dealtAt}000])); }
  static now() { return ${dealtAt}000; }
};
const note = (text) => { sessionStorage.said = (sessionStorage.said ?? '') + text + '\\n'; };
for (const kind of ['debug', 'error', 'info', 'log', 'warn']) console[kind] = note;
addEventListener('error', ({ message }) => note(message));
addEventListener('unhandledrejection', ({ reason }) => note(reason));
addEventListener('securitypolicyviolation', ({ blockedURI }) => note(blockedURI));`;

// Gives a served page files, and their hashes to its list. Answers the tag of the last one.
export function change(served, files) {
  const list = JSON.parse(readFileSync(path.join(served, 'version.json')));
  let tag;
  for (const [name, content] of Object.entries(files)) {
    const hash = `sha256-${createHash('sha256').update(content).digest('base64')}`;
    tag = hash.replace(/\W/g, '').slice(6, 16);
    list[name.replace('index.html', './')] = { hash, tag };
    writeFileSync(path.join(served, name), content);
  }
  writeFileSync(path.join(served, 'version.json'), JSON.stringify(list));
  return tag;
}

// A copy of the page that runs the prelude.
export function prepare() {
  const served = path.join(output, kind);
  cpSync(folder, served, { recursive: true });
  const page = readFileSync(path.join(folder, 'index.html'), 'utf8')
    .replace('<script', '<script src="prelude.js"></script>\n<script');
  change(served, { 'prelude.js': prelude, 'index.html': page });
  return served;
}

export const stored = (page) => page.evaluate(() => localStorage.getItem('/highscore.scr'));

export class Player {
  // `press` is given a place and how many times.
  constructor(page, name, press = (x, y, count = 1) => page.mouse.click(x, y, { count })) {
    Object.assign(this, { page, name, press, troubles: [] });
    page.on?.('console', (message) => this.troubles.push(message.text()));
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
    return this.until((wanted) => document.body.innerText.includes(wanted) ||
      [...document.querySelectorAll(`[aria-label*="${wanted}"]`)].some((one) => one.getClientRects().length), words);
  }

  // Presses what has this text or name, once nothing lies above it.
  async hit(name) {
    await this.press(...await this.until((wanted) => {
      const spots = [...document.querySelectorAll('button, dialog > p')]
        .filter((one) => [one.textContent, one.getAttribute('aria-label')].includes(wanted))
        .map((one) => [one, one.getBoundingClientRect()])
        .map(([one, { x, y, width, height }]) => ({ one, at: [x + width / 2, y + height / 2] }));
      return spots.find(({ one, at }) => document.elementFromPoint(...at) === one)?.at;
    }, name));
  }

  async deal() {
    await this.hit('neues Spiel');
    await this.hit('Ja');
    await this.find('Stapel, 49 Karten');
  }

  // The golden game, dealt already.
  async play() {
    const { left, top, scale } = await this.page.evaluate(() => {
      const section = document.querySelector('.with-cards');
      const { left, top } = section.querySelector('.client').getBoundingClientRect();
      return { left, top, scale: Number(section.style.getPropertyValue('--scale')) };
    });
    for (const [number, [click, x, y]] of moves.entries()) {
      await this.press(left + x * scale, top + y * scale, click === 'double' ? 2 : 1);
      if (number === 60) await this.shot('playing');
    }
  }

  // A screenshot. Nothing is amiss then for those who can't see it; the colour of the clock is the
  // game's own.
  async shot(what) {
    const file = path.join(output, `${this.name}-${what}.png`);
    await this.page.screenshot({ path: file });
    console.log(file);
    const amiss = await this.page.evaluate(async () => (await window.axe.run()).violations
      .flatMap(({ id, nodes }) => nodes.map(({ html }) => `${id}: ${html}`)));
    assert.deepEqual(amiss.filter((one) => !/^color-contrast: .* rgb\(0, 128, 128\)/.test(one)), [], what);
  }

  // Nothing was said in the console.
  async end() {
    this.troubles.push(await this.page.evaluate(() => sessionStorage.said ?? ''));
    assert.deepEqual(this.troubles, ['']);
  }
}
