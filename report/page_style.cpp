#include "page_style.h"

const char *const kPageStyle = R"css(
:root {
  color-scheme: light dark;
  --paper: #fdfdfb; --ink: #1c2127; --soft: #57606b; --rule: #d8dcd8;
  --accent: #2f6690; --mark: #b3541e; --worse: #a3291f; --better: #1d6b3a;
  --t1: #e4edf4; --t2: #c3d8e8; --t3: #9dc0da; --t4: #74a5c8;
}
@media (prefers-color-scheme: dark) {
  :root {
    --paper: #15191d; --ink: #e6e9eb; --soft: #a5aeb6; --rule: #343b41;
    --accent: #7fb2d9; --mark: #f0a35e; --worse: #ff9c8e; --better: #80d39c;
    --t1: #202c36; --t2: #264053; --t3: #2c5470; --t4: #33678c;
  }
}
* { box-sizing: border-box; }
html { font: 16px/1.5 system-ui, -apple-system, "Segoe UI", Roboto, "Noto Sans", "DejaVu Sans", sans-serif; }
body { margin: 0; background: var(--paper); color: var(--ink); overflow-wrap: break-word; }
bdi { overflow-wrap: anywhere; }
.nobr { white-space: nowrap; }
header, main, footer { max-width: 70rem; margin: 0 auto; padding: 0 2rem; }
header { padding-top: 3rem; }
h1 { margin: 0; font-size: 2rem; line-height: 1.2; font-weight: 650; letter-spacing: -0.015em; }
h2 { margin: 0 0 .25rem; font-size: 1.25rem; line-height: 1.3; font-weight: 650; }
p { margin: .25rem 0 1rem; max-width: 44rem; }
.soft, caption, .unit, .place, footer { color: var(--soft); }
nav ul { display: flex; flex-wrap: wrap; gap: .25rem 1.25rem; margin: 1rem 0 0; padding: 0; list-style: none; }
a { color: var(--accent); text-decoration-thickness: 1px; text-underline-offset: .2em; }
a:focus-visible, summary:focus-visible { outline: 2px solid var(--accent); outline-offset: 2px; }
section { margin-top: 2rem; padding-top: 1.5rem; border-top: 1px solid var(--rule); }
ul.key { display: grid; grid-template-columns: repeat(auto-fit, minmax(9.5rem, 1fr)); gap: 1.25rem 2rem; margin: 1rem 0 1.75rem; }
ul.key { padding: 0; list-style: none; font-size: .875rem; line-height: 1.4; font-variant-numeric: tabular-nums; }
ul.key strong { display: block; font-size: 1.75rem; line-height: 1.3; font-weight: 600; letter-spacing: -0.01em; }
ul.key span { display: block; }
ul.key span span { display: inline; }
table { width: 100%; border-collapse: collapse; font-size: .9375rem; line-height: 1.4; }
table + table { margin-top: 1.75rem; }
table.slim { max-width: 32rem; }
caption { padding: 0 0 .5rem; text-align: left; font-size: .875rem; }
th, td { padding: .35rem 0 .35rem 1rem; border-bottom: 1px solid var(--rule); text-align: left; vertical-align: top; }
th:first-child { padding-left: 0; }
th { font-weight: 400; }
thead th { font-size: .8125rem; color: var(--soft); vertical-align: bottom; border-bottom-color: var(--soft); }
.n { text-align: right; font-variant-numeric: tabular-nums; }
.unit, .place { font-size: .8125rem; }
.place { display: block; }
.worse { color: var(--worse); } .better { color: var(--better); }
.two { display: grid; grid-template-columns: minmax(0, 3fr) minmax(0, 2fr); gap: 1rem 3rem; align-items: start; }
.panels { display: grid; grid-template-columns: repeat(auto-fit, minmax(15rem, 1fr)); gap: 1.5rem 2rem; margin: 1rem 0; }
figure { margin: 0 0 1rem; }
figcaption { margin-bottom: .5rem; font-size: .875rem; color: var(--soft); }
svg { display: block; width: 100%; height: auto; font-family: inherit; }
svg svg { display: inline; overflow: hidden; }
svg.narrow { display: none; }
svg.bar { width: 7rem; height: .6rem; margin-top: .35rem; }
svg.bar rect, .column { fill: var(--accent); }
.mark { fill: var(--mark); stroke: var(--paper); }
.base { fill: var(--soft); }
text { fill: var(--ink); font-size: 12px; font-variant-numeric: tabular-nums; unicode-bidi: isolate; }
text.axis { fill: var(--soft); font-size: 11px; }
text.axis, text.value { text-anchor: middle; }
svg svg text.axis { fill: var(--ink); text-anchor: start; }
.trend { fill: none; stroke: var(--accent); stroke-width: 2; stroke-linejoin: round; }
.dot { fill: var(--accent); stroke: var(--paper); stroke-width: 1.5; }
.tile { stroke: var(--paper); stroke-width: 1.5; }
.t1 { fill: var(--t1); } .t2 { fill: var(--t2); } .t3 { fill: var(--t3); } .t4 { fill: var(--t4); }
ul.legend { display: flex; flex-wrap: wrap; gap: .25rem 1.25rem; margin: .5rem 0 1.5rem; padding: 0; list-style: none; font-size: .875rem; }
ul.legend svg { display: inline-block; width: .9rem; height: .9rem; margin-right: .4rem; vertical-align: -.1rem; }
summary { cursor: pointer; }
details p { margin: .25rem 0; font-size: .875rem; color: var(--soft); }
footer { margin-top: 3rem; padding-bottom: 3rem; font-size: .875rem; }
footer dl { display: grid; grid-template-columns: max-content minmax(0, 1fr); gap: .15rem 1.25rem; margin: .5rem 0 1rem; }
footer dt { color: var(--ink); } footer dd { margin: 0; }
@media (max-width: 640px) {
  header, main, footer { padding-left: 1rem; padding-right: 1rem; }
  header { padding-top: 1.5rem; }
  h1 { font-size: 1.5rem; }
  .two { display: block; }
  .w { display: none; }
  table { font-size: .8125rem; }
  th, td { padding-left: .6rem; }
  thead th { font-size: .75rem; }
  th[scope=row] { min-width: 7rem; }
  .two th[scope=row] { min-width: 0; }
  ul.key { grid-template-columns: 1fr 1fr; gap: 1rem; }
  ul.key strong { font-size: 1.5rem; }
  svg.wide { display: none; }
  svg.narrow { display: block; }
  footer dl { display: block; } footer dd { margin-bottom: .35rem; }
}
@media print {
  :root {
    color-scheme: light;
    --paper: #fff; --ink: #000; --soft: #444; --rule: #bbb;
    --accent: #2f6690; --mark: #b3541e; --worse: #8e1f16; --better: #14592e;
    --t1: #e4edf4; --t2: #c3d8e8; --t3: #9dc0da; --t4: #74a5c8;
  }
  html { font-size: 10pt; }
  header, main, footer { max-width: none; padding-left: 0; padding-right: 0; }
  header { padding-top: 0; }
  nav { display: none; }
  ul.key { grid-template-columns: repeat(5, 1fr); gap: 1rem; }
  .panels { grid-template-columns: repeat(4, minmax(0, 1fr)); gap: 1rem; }
  section { break-inside: auto; }
  h2, caption, figcaption { break-after: avoid; }
  figure, tr, ul.key, .panels > * { break-inside: avoid; }
  thead { display: table-header-group; }
  svg, svg * { -webkit-print-color-adjust: exact; print-color-adjust: exact; }
}
)css";
