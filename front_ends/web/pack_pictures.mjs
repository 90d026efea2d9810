// Packs pictures for the page: each as WebP, without loss but for photographs, behind a line that
// tells their names and sizes.
//
//   pack_pictures.mjs PACK CWEBP GIF2WEBP PICTURES...
import { execFileSync } from 'node:child_process';
import { readFileSync, writeFileSync } from 'node:fs';
import path from 'node:path';

// A bitmap of 24 bits to the pixel, bottom line first, as the portable pixmap that cwebp reads.
function pixmap(bitmap) {
  const [start, width, height] = [10, 18, 22].map((at) => bitmap.readInt32LE(at));
  const line = Math.ceil((width * 3) / 4) * 4;
  const pixels = Buffer.alloc(width * height * 3);
  for (let y = 0; y < height; ++y) {
    const from = start + (height - 1 - y) * line;
    bitmap.copy(pixels, y * width * 3, from, from + width * 3);
  }
  for (let at = 0; at < pixels.length; at += 3) pixels.subarray(at, at + 3).reverse();
  return Buffer.concat([Buffer.from(`P6\n${width} ${height}\n255\n`), pixels]);
}

const [pack, cwebp, gif2webp, ...files] = process.argv.slice(2);
const run = (tool, options, input) =>
  execFileSync(tool, ['-quiet', '-o', '-', ...options], { input });

const makers = {
  '.bmp': (file) => run(cwebp, ['-lossless', '-z', '6', '--', '-'], pixmap(readFileSync(file))),
  '.gif': (file) => run(gif2webp, ['-m', '6', file]),
  '.jpg': (file) => run(cwebp, ['-q', '75', '-m', '6', file]),
};

const pictures = files.map((file) => [path.basename(file), makers[path.extname(file)](file)]);
const sizes = pictures.map(([name, bytes]) => [name, bytes.length]);
writeFileSync(pack, Buffer.concat([
  Buffer.from(`${JSON.stringify(sizes)}\n`), ...pictures.map(([, bytes]) => bytes)]));
