// Renders every reply of a folder through the command-line host and looks at the pages; called by
// scripts/check-pages. Prints what is wrong and ends with status 1 when anything is.
'use strict';
const {execFileSync} = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const {chromium} = require('playwright-core');

const work = path.resolve(process.argv[2]);
const forDocs = process.argv.includes('--docs');
const host = path.resolve('build/release/bin/zrcreditbureau');
const axeSource = fs.readFileSync(require.resolve('axe-core/axe.min.js'), 'utf8');
const pictures = path.join(work, 'pictures');
fs.rmSync(pictures, {recursive: true, force: true});
fs.mkdirSync(pictures, {recursive: true});

const kLargestShare = 2;  // a page to its reply, from 75 KB on
let faults = 0;
function wrong(name, what) {
  ++faults;
  if (faults <= 100) console.error(`${name}: ${what}`);
}

function translate(name, job) {
  const reply = path.join(work, 'replies', `${name}.xml`);
  const settings = path.join(work, 'settings.json');
  const html = path.join(work, 'replies', `${name}.html`);
  fs.writeFileSync(settings, JSON.stringify({[job.service]: job.settings}));
  const options = ['translate', reply, '--service', job.service, '--product', job.product, '--date', job.date,
    '--settings', settings, '--date-format', 'd mmm yyyy'];
  const run = more => execFileSync(host, [...options, ...more], {stdio: ['ignore', 'pipe', 'ignore'], maxBuffer: 1 << 27}).toString();
  let result;
  try {
    result = JSON.parse(run(['--format', 'json', '--html', html]));
  } catch (error) {
    result = JSON.parse(error.stdout.toString());  // a refusal: its page is in the response
    fs.writeFileSync(html, result.Response.ResponseHTML);
  }
  return {html, result, text: result.Result ? run([]) : ''};
}

const dollars = amount => '$' + amount.toLocaleString('en-AU', {minimumFractionDigits: 2, maximumFractionDigits: 2});

// What the component itself counts, as a headline; '' where it counts nothing adverse.
function headlineOf(response, disqualified) {
  const adverse = response.DefaultCount + response.CollectionCount + response.JudgementCount +
    response.BankruptcyCount + response.PublicNoticeAdverseCount + disqualified;
  const open = response.DefaultCountUnpaid + response.CollectionCountUnpaid + response.JudgementCountUnpaid +
    response.BankruptcyCountUndischarged;
  const owed = Number(response.DefaultLoadedBalance) + Number(response.CollectionLoadedBalance) +
    Number(response.JudgementLoadedBalance);
  return adverse === 0 ? '' :
    `${adverse} adverse record${adverse === 1 ? '' : 's'}, ${open} open, ${dollars(owed)} owed`;
}

// In the browser: the reply's records and amounts, and what the page says of them.
function readBoth(xml) {
  const reply = new DOMParser().parseFromString(xml, 'text/xml');
  const adverse = ['default', 'court-action', 'bankruptcy', 'judgement', 'insolvency', 'collection',
    'company-default', 'company-judgement', 'company-collection'];
  // A New Zealand company's file that the reply has twice, under the report as well, is one file if
  // the one has every value of the other.
  const values = file => [...file.querySelectorAll('*')].map(each => each.tagName + ' ' +
    [...each.attributes].map(one => `${one.name}=${one.value}`) + (each.children.length ? '' : each.textContent.trim())).join('|');
  const again = record => {
    const file = record.parentNode, holder = file.parentNode;
    return holder.tagName.startsWith('company') && [...holder.parentNode.children].some(
      other => other.tagName === file.tagName && values(other) === values(file));
  };
  const records = adverse.flatMap(tag => [...reply.getElementsByTagName(tag)])
    .filter(record => !again(record));
  const amounts = records.flatMap(record => [...record.querySelectorAll('*')])
    .filter(element => /(amount|balance)$/.test(element.tagName) && element.textContent.trim() !== '')
    .map(element => element.textContent.trim());
  const heading = /^(Default|Court action|Bankruptcy|Judgement|Insolvency|Collection) /;
  const texts = [];
  const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  while (walker.nextNode()) texts.push(walker.currentNode.data);
  const table = {};
  for (const row of document.querySelectorAll('#overview ~ .counts tbody tr')) {
    const cells = [...row.children];
    table[cells[0].textContent] = Object.fromEntries(cells.map(cell => [cell.dataset.label, cell.textContent]));
  }
  return {
    title: document.querySelector('h1').textContent,
    headline: [...document.querySelectorAll('.overview > .headline strong')].map(each => each.textContent),
    text: texts.join(' ').replace(/\s+/g, ' '),
    records: records.length,
    shown: [...document.querySelectorAll('article.record > :first-child')].filter(each => heading.test(each.textContent)).length,
    disqualified: reply.querySelectorAll('primary-match disqualified-directorship').length,
    amounts, table,
    wide: document.documentElement.scrollWidth - document.documentElement.clientWidth,
  };
}

// Words as a page and a report line may both write them.
const comparable = text => text.replace(/[$,]/g, '').replace(/-/g, ' ').replace(/\s+/g, ' ').toUpperCase();
function piecesOf(line) {
  return line.replace(/, Number\s*$/, '').replace(/(\d)\.00\b(?!%)/g, '$1').replace(/(\d-\d\d)T(\d)/g, '$1 $2').replace(/\b(\d+): \1/g, '$1: ')
    .split(/\r?\n| - |\(Reference |Client Reference |Corrections:|Date of Birth |barcode |: | for |[();"]/)
    .map(piece => piece.trim()).filter(piece => piece !== '');
}

const kFamilies = {
  'Defaults': 'Default', 'Judgements': 'Judgement', 'Writs and summonses': 'Collection', 'Bankruptcies': 'Bankruptcy',
  'Defaults (collection agency)': 'Collection', 'Collections': 'Collection', 'Enquiries': 'Enquiry',
  'Insolvencies and bankruptcies': 'Bankruptcy', 'Public notices': 'PublicNotice',
};

function compare(name, job, response, seen, text) {
  const expected = headlineOf(response, seen.disqualified);
  const said = seen.headline.find(each => !each.includes('outside')) ?? '';
  if (said !== expected) wrong(name, `the headline says "${said}", the response "${expected}"`);
  if (expected !== '' && !text.split('\n').slice(0, 5).includes(expected)) wrong(name, `the text does not begin with "${expected}"`);
  const apart = response.Company !== undefined ? response.Company : !response.Individual;
  // VedaXML counts files that its reports on companies do not have; B2Bay leaves some kinds out.
  const uncounted = job.service === 'VedaXMLNZ' && apart;
  for (const [label, family] of Object.entries(kFamilies)) {
    const row = seen.table[label];
    if (row === undefined || uncounted || (label === 'Writs and summonses' && job.service === 'B2BayAU') ||
        (label === 'Public notices' && job.service === 'B2BayNZ') ||
        (label === 'Collections' && job.service === 'B2BayNZ_V2')) continue;
    const figures = [['On file', 'Count'], ['Last year', 'Count1Y'], ['2 years', 'Count2Y'], ['3 years', 'Count3Y'], ['4 years', 'Count4Y']];
    for (const [column, field] of figures) {
      if (Number(row[column]) !== response[family + field]) {
        wrong(name, `${label}, ${column}: ${row[column]} on the page, ${response[family + field]} in the response`);
      }
    }
  }
  if (seen.records !== seen.shown) wrong(name, `${seen.records} adverse records in the reply, ${seen.shown} on the page`);
  for (const amount of seen.amounts) {
    const number = Number(amount.replace(/[$,]/g, ''));
    if (!seen.text.includes(dollars(number))) wrong(name, `the amount ${amount} is not on the page`);
  }
  const page = comparable(seen.text.replace(/(\d)\.00\b(?!%)/g, '$1'));
  for (const line of response.ResponseElements) {
    if (/Statistics|Quick Summary/.test(line.ResponseGroup) || /^(Service|Date Created|Account Opened)$/.test(line.ResponseName)) continue;
    // A percentage that the reply lacks is a line, and no cell of the page.
    if (line.ResponseName === 'Percentage of Shares' && line.ResponseDescription === '0.00%') continue;
    for (const piece of piecesOf(line.ResponseDescription)) {
      const words = comparable(piece).replace('SEE ALSO POSSIBLE MATCH BELOW', 'POSSIBLE MATCH');
      if (!page.includes(words)) {
        wrong(name, `"${piece}" of the line ${line.ResponseGroup} | ${line.ResponseSubGroup} | ${line.ResponseName} is not on the page`);
      }
    }
  }
}

async function violations(page) {
  await page.evaluate(axeSource);
  const found = await page.evaluate(() => window.axe.run(document, {resultTypes: ['violations']}));
  return found.violations.map(each => `${each.id} at ${each.nodes.slice(0, 2).map(node => node.target.join(' ')).join(', ')}`);
}

const kViews = [
  {width: 1280, scheme: 'light'}, {width: 390, scheme: 'light'},
  {width: 1280, scheme: 'dark'}, {width: 390, scheme: 'dark'},
];

const jobOf = name => JSON.parse(fs.readFileSync(path.join(work, 'replies', `${name}.json`)));

async function look(page, name, index) {
  const job = jobOf(name);
  const {html, result, text} = translate(name, job);
  const reply = fs.readFileSync(path.join(work, 'replies', `${name}.xml`), 'utf8');
  const size = fs.statSync(html).size;
  if (reply.length > 74000 && size > kLargestShare * reply.length) wrong(name, `a page of ${size} bytes for ${reply.length}`);
  const made = name.startsWith('made_');
  // A made reply is looked at in one view, the examples in all.
  for (const view of made ? [kViews[index % kViews.length]] : kViews) {
    await page.setViewportSize({width: view.width, height: 1000});
    await page.emulateMedia({colorScheme: view.scheme});
    const asked = [];
    const note = request => asked.push(request.url());
    page.on('request', note);
    await page.goto('file://' + html);
    const seen = await page.evaluate(readBoth, reply);
    if (result.Result && view === (made ? kViews[index % kViews.length] : kViews[0])) {
      compare(name, job, result.Response, seen, text);
      if (seen.title === 'This sheet is not for this report') wrong(name, 'its own sheet refuses it');
    }
    if (seen.wide > 0) wrong(name, `at ${view.width} pixels the page is ${seen.wide} wider than the screen`);
    for (const violation of await violations(page)) wrong(name, `at ${view.width}, ${view.scheme}: ${violation}`);
    if (!made) {
      await page.screenshot({path: path.join(pictures, `${name}_${view.width}_${view.scheme}.png`), fullPage: true});
    }
    page.off('request', note);
    for (const address of asked) {
      if (address !== 'file://' + html) wrong(name, `the page asks for ${address}`);
    }
  }
  if (!made) await print(page, name, result);
}

// On paper every page says whose report it is and of which day.
async function print(page, name, result) {
  const file = path.join(pictures, `${name}.pdf`);
  await page.pdf({path: file, preferCSSPageSize: true});
  const title = await page.evaluate(() => document.querySelector('h1').textContent);
  const sheets = execFileSync('pdftotext', [file, '-']).toString().split('\f').slice(0, -1);
  sheets.forEach((sheet, at) => {
    const text = sheet.replace(/\s+/g, ' ');
    if (result.Result && !(text.includes(title) && text.includes('Report of 15 Jun 2012'))) {
      wrong(name, `page ${at + 1} on paper does not say whose report it is`);
    }
  });
}

// The pictures of the documentation, of the made-up people of the examples.
async function draw(browser) {
  const wanted = [
    ['vedaxml_au_adverse', 1000, 'light', '.overview', 'overview'],
    ['vedaxml_au_adverse', 390, 'light', '.timeline', 'timeline_narrow'],
    ['vedaxml_au_adverse', 800, 'dark', '#consumer article.record', 'default_dark'],
  ];
  for (const [name, width, colorScheme, what, picture] of wanted) {
    translate(name, jobOf(name));
    const page = await browser.newPage({viewport: {width, height: 1000}, colorScheme});
    await page.goto('file://' + path.join(work, 'replies', `${name}.html`));
    await page.locator(what).first().screenshot({path: path.resolve(`docs/pictures/${picture}.png`)});
    await page.close();
  }
}

const launch = () => chromium.launch({
  executablePath: '/usr/bin/chromium',
  args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
    '--disable-component-update', '--disable-sync'],
});

async function open() {
  const browser = await launch();
  const page = await browser.newPage();
  page.on('console', message => wrong(page.url(), `the browser says ${message.text()}`));
  return page;
}

async function main() {
  if (forDocs) {
    const browser = await launch();
    await draw(browser);
    await browser.close();
    return;
  }
  const names = fs.readdirSync(path.join(work, 'replies')).filter(file => file.endsWith('.xml'))
    .map(file => file.slice(0, -4)).sort();
  let page = await open();
  for (const [index, name] of names.entries()) {
    try {
      await look(page, name, index);
    } catch (error) {
      // A browser that was killed is started once more.
      if (!/has been closed|crashed/.test(error.message)) throw error;
      page = await open();
      await look(page, name, index);
    }
  }
  await page.context().browser().close();
  console.log(`${names.length} replies looked at, ${faults} faults; pictures in ${path.relative('.', pictures)}`);
  process.exit(faults === 0 ? 0 : 1);
}

main();
