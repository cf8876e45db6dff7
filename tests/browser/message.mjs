// node message.mjs SERVER ADDRESS FOLDER PAGE TEXT: a text message as the unit shows it, under the
// links of the house.
import assert from 'node:assert/strict';
import { onUnit } from './unit_browser.mjs';

const [server, address, folder, place, text] = process.argv.slice(2);

await onUnit({ address, folder }, async (page, screenshot) => {
  await page.goto(`${server}/VeloraTestMessage.HTML`);
  await page.goto(`${server}/${place}`);
  const message = page.getByText(text);
  await message.waitFor();
  const colours = await message.evaluate((element) => [
    getComputedStyle(element).color,
    getComputedStyle(document.body).backgroundColor,
  ]);
  assert.deepEqual(colours, ['rgb(255, 255, 0)', 'rgb(0, 0, 255)']); // yellow on blue
  await page.getByRole('link', { name: 'Test page' }).waitFor();
  await screenshot('message');

  await page.getByRole('button', { name: 'Return' }).tap();
  await page.waitForURL(`${server}/VeloraTestMessage.HTML`);
});
