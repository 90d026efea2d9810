// Measures the page in Chromium, and an empty program served the same way; prints the figures. Times
// are milliseconds at slow 4G and a processor slowed down four times. Run where the project begins.
import { execFileSync } from 'node:child_process';
import { readdirSync } from 'node:fs';
import { setTimeout as sleep } from 'node:timers/promises';
import { PredefinedNetworkConditions } from 'puppeteer-core';
import { startBrowser } from '../tests/tour/web/browser.mjs';
import { serve } from '../tests/tour/web/serve.mjs';

const rounds = 9;
const build = 'build/web';
execFileSync('node', ['front_ends/web/make_page.mjs', `${build}/benchmarks/page`,
  ...['Solvanta.js', 'Solvanta.wasm'].map((name) => `${build}/benchmarks/${name}`),
  ...['', '@2x', '@3x', '@4x'].map((size) => `${build}/front_ends/web/pictures${size}.pack`),
  ...readdirSync('front_ends/web/page').map((name) => `front_ends/web/page/${name}`),
  ...['Help.rtf', 'Solvanta.png', 'Solvanta-32.png'].map((name) => `shipped/${name}`)]);

const browser = await startBrowser();
const [bare, page] = await Promise.all([`${build}/benchmarks/page`, `${build}/Solvanta`].map(
  (folder) => serve(folder, { compressed: false })));

async function open(ratio = 1) {
  const opened = await (await browser.createBrowserContext()).newPage();
  await opened.setViewport({ width: 1280, height: 800, deviceScaleFactor: ratio });
  return opened;
}

// Bytes and requests of all that is loaded for playing without a network as well.
async function firstLoad(ratio) {
  page.loaded.length = 0;
  const opened = await open(ratio);
  await opened.goto(page.address);
  await opened.waitForFunction(async () => Boolean(await caches.match('version.json')));
  await sleep(500);
  await opened.browserContext().close();
  return [page.loaded.reduce((sum, { size }) => sum + size, 0), page.loaded.length];
}

// Until the table, or what the empty program shows, is painted.
async function timeToTable({ address }) {
  const opened = await open();
  await opened.emulateNetworkConditions(PredefinedNetworkConditions['Slow 4G']);
  await opened.emulateCPUThrottling(4);
  await opened.evaluateOnNewDocument(() => {
    const look = () => (document.querySelector('.window:not([hidden])') ?
      setTimeout(() => { window.painted = performance.now(); }) : requestAnimationFrame(look));
    requestAnimationFrame(look);
  });
  await opened.goto(address);
  const time = await (await opened.waitForFunction(() => window.painted)).jsonValue();
  await opened.browserContext().close();
  return time;
}

const deal = async (opened) => {
  await opened.locator('button ::-p-text(neues Spiel)').click();
  await opened.locator('dialog ::-p-text(Ja)').click();
};

// From a click that selects a column, or gives it up, to its picture on the screen.
async function clickToPaint() {
  const opened = await open();
  await opened.emulateCPUThrottling(4);
  await opened.goto(page.address);
  await deal(opened);
  await opened.evaluate(() => {
    window.times = [];
    new PerformanceObserver((list) => window.times.push(...list.getEntries()
      .filter(({ name }) => name === 'pointerup').map(({ duration }) => duration)))
      .observe({ type: 'event', durationThreshold: 16 });
  });
  for (let click = 0; click < 100; ++click) {
    await opened.mouse.click(200 + 110 * (click % 8), 300);
    await sleep(100);
  }
  const times = await opened.evaluate(() => window.times);
  await opened.browserContext().close();
  return times;
}

// Bytes of the scripts and of the program after one game and after a hundred.
async function memory() {
  const opened = await open();
  await opened.goto(page.address);
  const tools = await opened.createCDPSession();
  const sizes = [];
  for (const games of [1, 99]) {
    for (let game = 0; game < games; ++game) await deal(opened);
    await tools.send('HeapProfiler.collectGarbage');
    sizes.push((await opened.metrics()).JSHeapUsedSize + await opened.evaluate('HEAPU8.length'));
  }
  return sizes;
}

const times = { bare: [], page: [] };
for (let round = 0; round < rounds; ++round) {
  times.bare.push(await timeToTable(bare));
  times.page.push(await timeToTable(page));
}
const loads = [await firstLoad(1), await firstLoad(2), await firstLoad(3)];
console.log(JSON.stringify({ loads, times, clicks: await clickToPaint(), memory: await memory() }));
await browser.close();
await Promise.all([bare.end(), page.end()]);
