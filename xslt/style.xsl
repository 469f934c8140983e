<?xml version="1.0" encoding="utf-8"?>
<!-- How every report looks: on a screen, on a telephone, on A4. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:template name="style">
    <style>
:root { color-scheme: light dark; --paper: #fff; --ink: #1c2733; --soft: #4f5d6b; --line: #d3dae1; --wash: #f4f6f8;
  --brand: #1f3d63; --bad: #8f1d1d; --bad-wash: #fcf1f0; --good: #1a5a38; --good-wash: #eef7f1;
  --warn: #6f4700; --warn-wash: #fff7e6; }
@media screen and (prefers-color-scheme: dark) {
  :root { --paper: #1a2129; --ink: #e6ebf0; --soft: #a9b6c3; --line: #3a4653; --wash: #12171d;
    --brand: #9cc3f0; --bad: #ffa8a0; --bad-wash: #3a1c1c; --good: #8fd6ab; --good-wash: #16301f;
    --warn: #f2c572; --warn-wash: #33280f; }
}
* { box-sizing: border-box; }
html { font-size: 93.75%; -webkit-text-size-adjust: 100%; text-size-adjust: 100%; }
body { margin: 0; background: var(--wash); color: var(--ink);
  font: 1rem/1.5 "Segoe UI", Roboto, "Helvetica Neue", Arial, "DejaVu Sans", sans-serif; }
main, .masthead, .foot { max-width: 66rem; margin: 0 auto; padding: 0 1.5rem; }
h1, h2, h3, h4, h5, p, dl, dd, ul, table { margin: 0; padding: 0; }
h1, h2, h3, h4, h5 { line-height: 1.25; overflow-wrap: anywhere; }
h1 { font-size: 1.75rem; }
h2 { font-size: 1.3rem; color: var(--brand); margin-bottom: .75rem; }
h3 { font-size: 1.05rem; margin: 1.5rem 0 .6rem; }
h4, h5 { font-size: .95rem; margin: 0 0 .6rem; }
a { color: var(--brand); }
time { white-space: nowrap; }

.masthead { padding-top: 1.75rem; padding-bottom: 1.25rem; }
.eyebrow { color: var(--soft); font-size: .85rem; letter-spacing: .04em; }
.lede { color: var(--soft); margin-top: .25rem; }
.contents { margin-top: .9rem; font-size: .9rem; }
.contents ul { list-style: none; display: flex; flex-wrap: wrap; gap: .3rem 1.1rem; }
.foot { color: var(--soft); font-size: .85rem; padding-bottom: 2rem; }

.panel { background: var(--paper); border: 1px solid var(--line); border-radius: 6px;
  padding: 1.25rem 1.5rem 1.5rem; margin-bottom: 1.25rem; }
.panel > h2 + h3 { margin-top: .75rem; }
.overview { border-top: 4px solid var(--brand); }
.other { border-left: 4px solid var(--warn); }
.part { border-top: 1px solid var(--line); margin-top: 1.5rem; padding-top: 1.25rem; }
.part > h3 { color: var(--brand); font-size: 1.15rem; margin: 0 0 .75rem; }
.part h4 { margin: 1.25rem 0 .6rem; font-size: 1rem; }
.part .record h5 { margin-top: 0; }

.say { border-radius: 4px; padding: .6rem .9rem; margin-bottom: 1rem;
  border-left: 4px solid var(--soft); background: var(--wash); }
.say strong { display: block; font-size: 1.05rem; }
.headline strong { font-size: 1.3rem; }
.say.bad { border-color: var(--bad); background: var(--bad-wash); color: var(--bad); }
.say.good { border-color: var(--good); background: var(--good-wash); color: var(--good); }
.say.warn { border-color: var(--warn); background: var(--warn-wash); color: var(--warn); }
.tag { display: inline-block; margin-left: .5rem; padding: 0 .5rem; border-radius: 3px;
  border: 1px solid currentColor; font-size: .8rem; font-weight: 600; }
.tag.bad, .flag.bad { color: var(--bad); } .tag.good { color: var(--good); }
.tag.warn, .flag.warn { color: var(--warn); }
.flag { font-weight: 700; } .flag::before { content: "\25B2\00A0"; font-size: .75em; }
.marks { list-style: none; display: flex; flex-wrap: wrap; gap: .4rem; margin-bottom: 1rem; }
.marks li { border: 1px solid currentColor; border-left-width: 4px; border-radius: 3px;
  padding: .15rem .6rem; overflow-wrap: anywhere; }
.marks .bad { color: var(--bad); background: var(--bad-wash); }
.marks .warn { color: var(--warn); background: var(--warn-wash); }
.running { display: none; }

figure { margin: 1.25rem 0 0; }
figcaption { color: var(--soft); font-size: .85rem; margin-bottom: .5rem; }
svg { display: block; max-width: 100%; height: auto; font-size: 13px; }
svg text { fill: var(--ink); }
.narrow { display: none; }
.rail { stroke: var(--line); }
.disc circle { fill: var(--paper); stroke: var(--brand); stroke-width: 2; }
.open circle { fill: var(--bad); stroke: var(--bad); }
.disc text { font-size: 12px; font-weight: 600; }
.open text { fill: var(--paper); }
.odds .own { fill: var(--brand); } .odds .all { fill: var(--soft); }

.facts { display: grid; grid-template-columns: repeat(auto-fill, minmax(12rem, 1fr));
  gap: .7rem 1.5rem; }
.facts .long { grid-column: 1 / -1; }
dt { color: var(--soft); font-size: .85rem; }
dd { overflow-wrap: anywhere; white-space: pre-line; }
.tiles { margin-bottom: 1.25rem; }
.tiles dd { font-size: 1.15rem; font-weight: 600; }
.tiles .note { font-size: .85rem; font-weight: 400; color: var(--soft); }

.record { border: 1px solid var(--line); border-radius: 4px; padding: .9rem 1.1rem 1rem;
  margin-bottom: .8rem; }
.record.bad { border-left: 4px solid var(--bad); }
.record .facts { grid-template-columns: repeat(auto-fit, minmax(12rem, 1fr)); }
.record .facts + table { margin-top: .9rem; table-layout: fixed; }
.record th:nth-child(1) { width: 14%; } .record th:nth-child(2) { width: 16%; }
.record th:nth-child(5) { width: 15%; }
table + .facts, table + .say { margin-top: 1rem; }
.panel > .facts + table { margin-top: 1rem; }
main > p { margin-bottom: 1.25rem; }
.none { color: var(--soft); }

table { width: 100%; border-collapse: collapse; }
caption { text-align: left; color: var(--soft); font-size: .85rem; padding-bottom: .35rem; }
th, td { text-align: left; vertical-align: top; padding: .4rem .9rem .4rem 0;
  border-bottom: 1px solid var(--line); overflow-wrap: break-word; }
th:last-child, td:last-child { padding-right: 0; }
thead th { color: var(--soft); font-size: .85rem; font-weight: 600; }
tbody th { font-weight: 600; }
tbody tr:last-child > * { border-bottom: 0; }
.record thead th { border-bottom: 1px solid var(--line); }
th.amount, td.amount { text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums; }
td.address { white-space: pre-line; }
td.prose { overflow-wrap: anywhere; }
tr.noted > * { border-bottom: 0; }
tr.note td { padding: 0 0 .5rem 1rem; white-space: pre-line; font-size: .9rem; }
.label { display: block; color: var(--soft); font-weight: 600; }
tr.quiet > * { color: var(--soft); font-weight: 400; }
.messages { padding-left: 1.2rem; }
.messages li { margin-bottom: .3rem; overflow-wrap: anywhere; }
.unseen { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%);
  white-space: nowrap; }

@media screen and (max-width: 640px) {
  .broad { display: none; } .narrow { display: block; }
  main, .masthead, .foot { padding-left: 1rem; padding-right: 1rem; }
  .panel { padding: 1rem; }
  .facts, .record .facts { grid-template-columns: 1fr 1fr; gap: .6rem 1rem; }
  .wide, .wide tbody, .wide tr, .wide td, .wide th { display: block; }
  .wide thead { position: absolute; width: 1px; height: 1px; overflow: hidden;
    clip-path: inset(50%); }
  .wide caption { display: block; }
  .wide tr { padding: .5rem 0; border-bottom: 1px solid var(--line); }
  .wide tr:last-child { border-bottom: 0; }
  .wide td, .wide tbody th { display: grid; grid-template-columns: 8rem 1fr; gap: .5rem;
    padding: .1rem 0; border: 0; text-align: left; white-space: pre-line; }
  .record tbody th { width: auto; }
  .wide td:empty { display: none; }
  .wide.counts tr { display: grid; gap: .1rem .5rem;
    grid-template-columns: 4.4rem minmax(0, 1fr) minmax(0, 1.4fr) minmax(0, 1.5fr); }
  .wide.counts tbody th { grid-column: 1 / -1; display: block; }
  .wide.counts td, .wide.counts td:empty { display: block; }
  .wide.counts tbody th::before { content: none; }
  .wide.counts td::before { display: block; }
  .wide tr.noted { border: 0; padding-bottom: 0; }
  .wide tr.note td { display: block; }
  .wide [data-label]::before { content: attr(data-label); color: var(--soft); font-size: .85rem;
    font-weight: 400; }
}

@page { size: A4; margin: 16mm 15mm 18mm; @bottom-right { content: counter(page) " of " counter(pages);
  font: 9pt Arial, sans-serif; color: #4f5d6b; } }
@media print {
  html { font-size: 9.5pt; }
  body { background: #fff; line-height: 1.4; display: table; width: 100%; table-layout: fixed; }
  .running { display: table-header-group; break-inside: avoid; font-size: 8.5pt; color: var(--soft); }
  .running div { display: flex; justify-content: space-between; gap: 5mm; padding-bottom: 1mm;
    margin-bottom: 3mm; border-bottom: 1px solid var(--line); }
  main, .masthead, .foot { max-width: none; padding: 0; }
  .masthead { margin-bottom: 4mm; }
  .contents { display: none; }
  .panel { border: 0; border-radius: 0; padding: 0; margin-bottom: 7mm; }
  .overview, .other { border: 1px solid var(--line); border-top: 3px solid var(--brand);
    padding: 4mm; }
  .other { border-top-color: var(--warn); }
  .facts, .record .facts { grid-template-columns: repeat(auto-fill, minmax(11rem, 1fr)); gap: 2mm 5mm; }
  .say, .tag, .record, .marks li, .disc, .odds { -webkit-print-color-adjust: exact; print-color-adjust: exact; }
  .record, .say, .facts, tr, li, figure { break-inside: avoid; }
  h2, h3, h4, h5, caption, thead, tr.noted { break-after: avoid; }
  thead { display: table-header-group; }
  p, dd { orphans: 3; widows: 3; }
}
    </style>
  </xsl:template>

</xsl:stylesheet>
