// Packs pictures for the page: each as WebP, without loss but for photographs, which are JPEG files
// and their larger versions, behind a line that tells their names and sizes.
//
//   pack_pictures.mjs PACK CWEBP GIF2WEBP PICTURES...
import { execFileSync } from 'node:child_process';
import { existsSync, readFileSync, writeFileSync } from 'node:fs';
import path from 'node:path';

// A bitmap of 24 bits to the pixel, or of 32 with alpha, bottom line first, as the portable map that
// cwebp reads.
function portableMap(bitmap) {
  const [start, width, height] = [10, 18, 22].map((at) => bitmap.readInt32LE(at));
  const depth = bitmap.readInt16LE(28) / 8;
  const line = Math.ceil((width * depth) / 4) * 4;
  const pixels = Buffer.alloc(width * height * depth);
  for (let y = 0; y < height; ++y) {
    const from = start + (height - 1 - y) * line;
    bitmap.copy(pixels, y * width * depth, from, from + width * depth);
  }
  for (let at = 0; at < pixels.length; at += depth) pixels.subarray(at, at + 3).reverse();
  return Buffer.concat([Buffer.from(`P7\nWIDTH ${width}\nHEIGHT ${height}\nDEPTH ${depth}\n` +
    `MAXVAL 255\nTUPLTYPE RGB${depth === 4 ? '_ALPHA' : ''}\nENDHDR\n`), pixels]);
}

const [pack, cwebp, gif2webp, ...files] = process.argv.slice(2);
const run = (tool, options, input) =>
  execFileSync(tool, ['-quiet', '-o', '-', ...options], { input });

const exactly = ['-lossless', '-z', '6', '--'];
const photograph = (file) => run(cwebp, ['-q', '75', '-m', '6', file]);
const isPhotograph = (file) => existsSync(file.replace(/@\dx\.png$/, '.jpg'));

const makers = {
  '.bmp': (file) => run(cwebp, [...exactly, '-'], portableMap(readFileSync(file))),
  '.gif': (file) => run(gif2webp, ['-m', '6', file]),
  '.jpg': photograph,
  '.png': (file) => (isPhotograph(file) ? photograph(file) : run(cwebp, [...exactly, file])),
};

const pictures = files.map((file) => [path.basename(file), makers[path.extname(file)](file)]);
const sizes = pictures.map(([name, bytes]) => [name, bytes.length]);
writeFileSync(pack, Buffer.concat([
  Buffer.from(`${JSON.stringify(sizes)}\n`), ...pictures.map(([, bytes]) => bytes)]));
