// node slideshow.mjs SERVER ADDRESS FOLDER: a unit's slideshow, which goes on by itself until its
// picture is touched.
import assert from 'node:assert/strict';
import { onUnit, picture, SCREEN } from './unit_browser.mjs';

const [server, address, folder] = process.argv.slice(2);

await onUnit({ address, folder }, async (page, screenshot) => {
  await page.goto(`${server}/VeloraSlideshow.asp`);
  const first = await picture(page);
  assert.ok(first.width <= SCREEN.width && first.height <= SCREEN.height, JSON.stringify(first));
  await screenshot('slideshow_first');

  // Only the page's own refresh brings the next one.
  await page.waitForFunction((before) => {
    const image = document.querySelector('img');
    return image && image.complete && image.naturalWidth > 0 &&
      new URL(image.src).pathname !== before;
  }, first.place);
  await screenshot('slideshow_next');

  await page.waitForFunction(() => document.title === 'The time');
  await screenshot('slideshow_clock');

  await page.waitForFunction(() => document.querySelector('a img'));
  await page.locator('a img').tap();
  await page.getByRole('link', { name: 'Test page' }).waitFor();
  assert.equal(new URL(page.url()).search, '?ClientAction=links');
  await screenshot('slideshow_links');
  await page.getByRole('link', { name: 'Test page' }).tap();
  await page.waitForURL(`${server}/VeloraTestMessage.HTML`);
});
