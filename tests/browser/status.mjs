// node status.mjs SERVER ADDRESS FOLDER STATE SETTINGS: the status page of a house, from a unit's
// browser: its devices in each order, a light switched on, settings changed, a filter added and
// removed. STATE is the unit's state.json, SETTINGS the settings file.
import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { onUnit } from './unit_browser.mjs';

const [server, address, folder, state, settings] = process.argv.slice(2);
const PATIENCE = 10_000; // milliseconds

const stored = async () => (await readFile(settings, 'latin1')).split(/\r?\n/);

async function eventually(what, look) {
  for (const end = Date.now() + PATIENCE; Date.now() < end; ) {
    if (await look()) {
      return;
    }
    await new Promise((resolve) => setTimeout(resolve, 50));
  }
  assert.fail(what);
}

await onUnit({ address, folder }, async (page, screenshot) => {
  const field = (name) => page.locator(`[name="${name}"]`).first();
  const press = async (name) => {
    await Promise.all([page.waitForEvent('load'), field(name).click()]);
  };
  const row = (text) => page.locator('tr', { has: page.locator('> td > select') })
    .filter({ hasText: text });
  const column = (number) => page.locator(`tr:has(> td > select) > td:nth-child(${number})`)
    .allTextContents();
  const open = () => page.goto(`${server}/status`);

  await open();
  assert.equal(await row('').count(), 0);
  await screenshot('status_setup');
  await field('ShowControl').check();
  await press('Save');
  assert.ok((await row('').count()) >= 10);
  assert.ok((await stored()).includes('ShowControl=True'));
  await screenshot('status_devices');

  // Each column sorts one way, then the other.
  const ordered = { ID: 2, Name: 4 };
  for (const button of ['ID', 'Name', 'Status', 'Changed']) {
    for (const direction of ['', 'DESC']) {
      await press(button);
      assert.ok((await stored()).includes(`StatusSortDirection="${direction}"`), button);
      if (ordered[button]) {
        const values = (await column(ordered[button])).map((text) =>
          text.toLowerCase().replace(/(\D)(\d)$/, '$10$2'));
        const expected = [...values].sort();
        assert.deepEqual(values, direction ? expected.reverse() : expected, button);
      }
    }
  }

  // A choice sets a device, and the page that comes shows it.
  await Promise.all([
    page.waitForEvent('load'),
    field('V5B4').selectOption('Turn On Top LED'),
  ]);
  await row('Wall Top LED').getByText('Top LED On').first().waitFor();
  await eventually('the light is not on', async () =>
    JSON.parse(await readFile(state, 'utf8')).top_led === 'on');

  // Settings of each kind come back from the page and stand in the file.
  const before = await stored();
  await field('PushDelay').fill('7');
  await field('TextStyle').fill("O'Hara & Co = <b>");
  await field('DebugLog').check();
  await field('Check1_3').check();
  await page.locator('[name="Option1"][value="2"]').check();
  await field('Motion0').fill('B5');
  await field('SlideASP6').fill('slides\\clock.asp');
  await field('Dwell6').fill('15');
  await press('Save');
  await open();
  for (const [name, value] of Object.entries({
    PushDelay: '7',
    TextStyle: "O'Hara & Co = <b>",
    Motion0: 'B5',
    SlideASP6: 'slides\\clock.asp',
    Dwell6: '15',
    CIDNamePrefix: 'NAME =',
  })) {
    assert.equal(await field(name).inputValue(), value);
  }
  for (const box of ['[name="DebugLog"]', '[name="Check1_3"]', '[name="Option1"][value="2"]']) {
    assert.ok(await page.locator(box).isChecked(), box);
  }
  const after = await stored();
  for (const line of [
    'PushDelay="7"',
    "TextStyle=O'Hara & Co = <b>",
    'DebugLog="1"',
    'Sounds="0,0,0,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0"',
    '6SlideASP=slides\\clock.asp,15',
    'CIDNamePrefix=NAME =',
    'MyOwnKey=kept',
    '; a comment of mine',
  ]) {
    assert.ok(after.includes(line), line);
  }
  assert.match(after.find((line) => line.startsWith(address)), /Wall,~11,A1,B5,2,/i);
  const keys = (lines) => lines.filter((line) => /^\w+=/.test(line))
    .map((line) => line.split('=')[0]);
  assert.deepEqual(keys(before).filter((key) => !keys(after).includes(key)), []);

  // A filter of the network's messages.
  await field('FilterTag0').fill('my lamp');
  await field('FilterEvent0').check();
  await field('Class0').fill('lamp.state');
  await field('Source0').fill('acme.lamp.hall');
  await press('Save');
  assert.equal(await field('FilterTag1').inputValue(), 'my_lamp');
  assert.ok((await stored()).includes('acme.lamp.hall~lamp.state=my_lamp;1'));
  await screenshot('status_filter');
  await field('Source1').fill('');
  await field('Class1').fill('');
  await press('Save');
  assert.equal(await page.locator('[name="FilterTag1"]').count(), 0);
  assert.ok(!(await stored()).some((line) => line.startsWith('acme.lamp')));

  // The answer to a read of the script stays out of sight.
  await page.locator('[name="script"]').click();
  await page.frameLocator('[name="hiddenframe"]').locator('[name="Save"]')
    .waitFor({ state: 'attached' });
  assert.equal(page.url(), `${server}/status`);
});
