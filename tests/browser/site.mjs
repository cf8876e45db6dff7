// node site.mjs SERVER ADDRESS FOLDER UNIT: the start page of the host's own site, which knows the
// devices of the house.
import { onUnit } from './unit_browser.mjs';

const [server, address, folder, unit] = process.argv.slice(2);

await onUnit({ address, folder }, async (page, screenshot) => {
  await page.goto(`${server}/`);
  await page.getByText('Velora Top LED').first().waitFor();
  await page.getByText(unit).first().waitFor();
  await screenshot('site_start');
});
