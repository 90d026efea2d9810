// The browsers in which the checks and the tour run. No call of theirs leaves this machine.
import puppeteer from 'puppeteer-core';

const settings = {
  chromium: {
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--accept-lang=de-DE',
      '--disable-background-networking', '--disable-component-update', '--disable-sync'],
  },
  firefox: {
    browser: 'firefox',
    executablePath: '/usr/bin/firefox-esr',
    extraPrefsFirefox: {
      'intl.accept_languages': 'de-DE', 'network.proxy.type': 1,
      'network.proxy.http': '127.0.0.1', 'network.proxy.http_port': 9,
      'network.proxy.ssl': '127.0.0.1', 'network.proxy.ssl_port': 9,
    },
  },
};

// Firefox, or else Chromium.
export const startBrowser = (name) => puppeteer.launch(
  { ...settings[name] ?? settings.chromium, defaultViewport: { width: 1280, height: 800 } });
