// Runs the checks of every Host in a page: checks.mjs FOLDER RATIO
import { inflateSync } from 'node:zlib';
import { startBrowser } from './browser.mjs';
import { serve } from './serve.mjs';

const [folder, ratio] = process.argv.slice(2);
const server = await serve(folder);
const browser = await startBrowser();
const page = await browser.newPage();
const tools = await page.createCDPSession();

// The colour of the first pixel of a picture in PNG.
function firstPixel(png) {
  const parts = [];
  for (let at = 8; at < png.length; at += 12 + png.readUInt32BE(at)) {
    if (png.toString('latin1', at + 4, at + 8) !== 'IDAT') continue;
    parts.push(png.subarray(at + 8, at + 8 + png.readUInt32BE(at)));
  }
  return inflateSync(Buffer.concat(parts)).readUIntBE(1, 3);
}

let pressed = 0;
const sleep = (milliseconds) => new Promise((done) => setTimeout(done, milliseconds));
let finish;
const finished = new Promise((done) => { finish = done; });

const acts = {
  async mouse({ x, y, button, down }) {
    await page.mouse.move(x, y);
    await page.mouse[down ? 'down' : 'up']({ button });
    if (down) pressed = Date.now();
  },
  rest: () => sleep(Math.max(0, pressed + 520 - Date.now())),
  async key({ text }) {
    const [key, held] = text.split('+').reverse();
    if (held) await page.keyboard.down(held);
    await page.keyboard.press(key);
    if (held) await page.keyboard.up(held);
  },
  async resize({ text }) {
    const [width, height] = text.split(' ').map(Number);
    await page.setViewport({ width, height, deviceScaleFactor: Number(ratio) });
  },
  paste: ({ text }) => tools.send('Input.insertText', { text }),
  repeat: ({ text: key }) => tools.send('Input.dispatchKeyEvent',
    { type: 'keyDown', key, code: key, windowsVirtualKeyCode: 13, text: '\r', autoRepeat: true }),
  async look({ x, y }) {
    const fine = (value) => Math.floor(value * ratio) / ratio;
    const clip = { x: fine(x), y: fine(y), width: 1, height: 1, scale: 1 };
    const { data } = await tools.send('Page.captureScreenshot', { clip });
    return firstPixel(Buffer.from(data, 'base64'));
  },
  done: ({ text: failures }) => finish(Number(failures)),
};

await page.exposeFunction('act', (what) => acts[what.act](what));
page.on('console', (message) => {
  // What the browser says by itself of a missing file is no news here.
  if (!message.text().startsWith('Failed to load')) console.log(message.text());
});
for (const trouble of ['pageerror', 'error'])  // the second when it has crashed
  page.on(trouble, (error) => { console.log(error.stack); finish(1); });
await page.goto(`${server.address}checks.html`);
process.exitCode = await finished;
await browser.close();
await server.end();
