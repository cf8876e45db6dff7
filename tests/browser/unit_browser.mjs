// The browser of a unit: Chromium whose requests come from the unit's own address, by which the
// house knows it.
import net from 'node:net';
import path from 'node:path';
import { chromium } from 'playwright-core';

const CHROMIUM = process.env.CHROMIUM ?? '/usr/bin/chromium';
export const SCREEN = { width: 640, height: 480 }; // pixels

// The request as the server itself expects it, and whom to ask. One request a connection.
function onward(head) {
  const [first, ...lines] = head.split('\r\n');
  const [method, target, version] = first.split(' ');
  const { hostname, port, pathname, search } = new URL(target);
  const headers = lines.filter((line) => !/^(proxy-)?connection:/i.test(line));
  const request = [`${method} ${pathname}${search} ${version}`, ...headers, 'Connection: close'];
  return { host: hostname, port: port || 80, request: request.join('\r\n') };
}

// Hands requests to servers of this machine on from `address`, since a browser cannot choose the
// address that it calls from. What goes elsewhere is refused. Answers pass as they are: the
// plug-in pads the last piece of a file, which browsers take and HTTP libraries do not.
function proxyFrom(address) {
  const proxy = net.createServer((client) => {
    let asked = '';
    const read = (bytes) => {
      asked += bytes.toString('latin1');
      const end = asked.indexOf('\r\n\r\n');
      if (end < 0) {
        return;
      }
      client.off('data', read);
      const { host, port, request } = onward(asked.slice(0, end));
      if (!host.startsWith('127.')) {
        client.end('HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n');
        return;
      }
      const server = net.connect({ host, port, localAddress: address });
      server.on('error', () => client.destroy());
      client.on('error', () => server.destroy());
      client.on('close', () => server.destroy());
      server.write(Buffer.from(request + asked.slice(end), 'latin1'));
      server.pipe(client);
      client.pipe(server);
    };
    client.on('data', read);
  });
  return new Promise((resolve) => proxy.listen(0, '127.0.0.1', () => resolve(proxy)));
}

// Runs `story(page, screenshot)` on a fresh page. `screenshot(name)` keeps what the page shows in
// `folder`. A request that the house does not answer with success fails the story.
export async function onUnit({ address, folder }, story) {
  const proxy = await proxyFrom(address);
  const browser = await chromium.launch({
    executablePath: CHROMIUM,
    args: [
      '--no-sandbox', // the tests may run as root
      '--disable-background-networking',
      '--disable-component-update',
    ],
    proxy: { server: `http://127.0.0.1:${proxy.address().port}`, bypass: '<-loopback>' },
  });
  try {
    const context = await browser.newContext({ viewport: SCREEN, hasTouch: true });
    const page = await context.newPage();
    const failed = [];
    page.on('response', (response) => {
      if (response.status() >= 400 && !response.url().endsWith('/favicon.ico')) {
        failed.push(`${response.status()} ${response.url()}`);
      }
    });
    try {
      await story(page, (name) => page.screenshot({ path: path.join(folder, `${name}.png`) }));
    } catch (error) {
      console.error(`${page.url()} holds: ${await page.content()}`);
      throw error;
    }
    if (failed.length > 0) {
      throw new Error(`not served: ${failed.join(', ')}`);
    }
  } finally {
    await browser.close();
    proxy.close();
  }
}

// The picture on the page, once it is loaded whole: its place on the server and its size in pixels.
export async function picture(page) {
  const handle = await page.waitForFunction(() => {
    const image = document.querySelector('img');
    return image && image.complete && image.naturalWidth > 0
      ? { place: new URL(image.src).pathname, width: image.width, height: image.height }
      : null;
  });
  return handle.jsonValue();
}
