#include "inspection/report/Stylesheet_p.h"

namespace KORMAK::Inspection {

QStringView stylesheet()
{
    return uR"css(
:root {
  color-scheme: light dark;
  --back: #fff; --soft: #f3f5f7; --text: #1a1f24; --muted: #56606b; --line: #cfd6dd;
  --accent: #0b5cad; --error: #b3261e; --warning: #8a5300; --good: #1d6b37;
  --sea: #dbe8ef; --land: #efeadb; --coast: #71838f; --area: #b3261e; --marked: #b3261e;
}
@media (prefers-color-scheme: dark) {
  :root {
    --back: #14181d; --soft: #1e242b; --text: #e6e9ed; --muted: #a3aeba; --line: #39434e;
    --accent: #7db7f2; --error: #ff9a91; --warning: #f0b35a; --good: #7fd39a;
    --sea: #16242e; --land: #3a3f3a; --coast: #8d9ea9; --area: #ff9a91; --marked: #ff9a91;
  }
}
* { box-sizing: border-box; }
html { background: var(--back); color: var(--text); font: 16px/1.5 system-ui, sans-serif; -webkit-text-size-adjust: 100%; }
body { margin: 0 auto; max-width: 64rem; padding: 1.5rem 1rem 3rem; overflow-wrap: anywhere; }
a, code, li, p, small, span, strong, td, th, h1, h2 { unicode-bidi: isolate; }
a { color: var(--accent); }
h1 { font-size: 1.75rem; line-height: 1.2; margin: 0.1em 0 0.35em; }
h2 { font-size: 1.2rem; line-height: 1.3; margin: 0 0 0.6em; }
section { margin-top: 2.25rem; }
p { margin: 0 0 0.6em; max-width: 44rem; }
small, .muted, .tip { color: var(--muted); }
small, .tip { font-size: 0.8125rem; font-weight: normal; }
.kicker { color: var(--muted); font-size: 0.875rem; margin: 0; }
.lead { font-size: 1.0625rem; margin-top: 1rem; }
.missing { border-left: 4px solid var(--line); padding-left: 0.75em; color: var(--muted); }
.status { display: flex; flex-wrap: wrap; gap: 0.4rem 0.75rem; margin: 0 0 1rem; padding: 0; list-style: none; font-size: 0.9375rem; }
.status li { border: 1px solid var(--line); border-radius: 999px; padding: 0.1rem 0.75rem; }
.status .good { color: var(--good); border-color: currentColor; }
.status .error { color: var(--error); border-color: currentColor; }
.status .warning { color: var(--warning); border-color: currentColor; }
.tiles { display: grid; grid-template-columns: repeat(auto-fit, minmax(13rem, 1fr)); gap: 0.75rem; margin: 0; padding: 0; list-style: none; }
.tiles li { background: var(--soft); border: 1px solid var(--line); border-radius: 6px; padding: 0.6rem 0.85rem; }
.tiles span { color: var(--muted); font-size: 0.8125rem; }
.tiles strong { display: block; font-size: 1.0625rem; font-weight: 600; }
.tiles small { display: block; }
nav ul { display: flex; flex-wrap: wrap; gap: 0.25rem 1rem; margin: 0 0 1rem; padding: 0; list-style: none; }
table { border-collapse: collapse; width: 100%; margin: 0 0 1.25rem; font-size: 0.9375rem; }
caption { text-align: left; color: var(--muted); font-size: 0.8125rem; padding: 0 0 0.25rem; }
th, td { text-align: left; vertical-align: top; padding: 0.35rem 0.75rem 0.35rem 0; border-bottom: 1px solid var(--line); }
th:last-child, td:last-child { padding-right: 0; }
thead th { color: var(--muted); font-size: 0.8125rem; font-weight: 600; border-bottom-width: 2px; }
tbody th { font-weight: 600; }
.fields { table-layout: fixed; }
.fields th { width: 38%; font-weight: 400; color: var(--muted); }
.fields + .fields { margin-top: 1.5rem; }
.parameters { table-layout: fixed; }
.parameters th:first-child { width: 42%; }
.parameters th:nth-child(2) { width: 22%; }
.parameters th small, .parameters td small { display: block; }
.parameters .entries small { display: inline; }
.tip { margin: 0.1rem 0; }
.disabled th, .disabled td { color: var(--muted); }
.badge { border: 1px solid currentColor; border-radius: 999px; padding: 0 0.5em; font-size: 0.75rem; font-weight: 400; white-space: nowrap; }
.entries { display: flex; flex-wrap: wrap; gap: 0 0.9rem; margin: 0; padding: 0; list-style: none; }
.note { border-left: 4px solid currentColor; margin: 0.3rem 0; padding-left: 0.6rem; font-size: 0.875rem; font-weight: 400; }
.note.error, .findings .error strong { color: var(--error); }
.note.warning, .findings .warning strong { color: var(--warning); }
.note a { color: inherit; }
.findings { margin: 0; padding-left: 1.75rem; }
.findings li { margin-bottom: 0.4rem; }
.findings .muted { font-size: 0.875rem; }
code { font: 0.875em ui-monospace, monospace; }
:target { background: var(--soft); outline: 2px solid var(--accent); outline-offset: 2px; }
figure { margin: 0 0 1.25rem; }
figcaption { color: var(--muted); font-size: 0.875rem; margin: 0 0 0.4rem; }
figcaption strong { color: var(--warning); }
.side-by-side { display: flex; flex-wrap: wrap; gap: 1.5rem 2rem; align-items: flex-start; }
.side-by-side .axis { flex: 1 1 24rem; min-width: 0; }
.side-by-side .rose { flex: 0 1 12rem; }
.axis { max-width: 52rem; }
svg { display: block; }
svg text { fill: var(--text); font: 12px system-ui, sans-serif; }
.strip { width: 100%; overflow: visible; }
.bands { height: 22px; }
.track { height: 16px; }
.ticks { height: 18px; }
.band { fill: var(--soft); stroke: var(--line); }
.band.odd { fill: var(--line); }
svg .band-name { font-size: 11px; font-weight: 600; }
.bar-name { display: flex; flex-wrap: wrap; gap: 0 0.6rem; margin: 0.4rem 0 0.1rem; font-size: 0.875rem; line-height: 1.3; max-width: none; }
.bar-name span { color: var(--muted); }
.grid { stroke: var(--line); }
.range { fill: var(--accent); }
.marked { stroke: var(--marked); stroke-width: 3; }
svg .beyond { fill: var(--back); font-size: 13px; }
svg .beyond.alone { fill: var(--accent); }
svg .tick { fill: var(--muted); font-size: 11px; }
.bar { width: 100%; max-width: 16rem; height: 12px; margin-top: 0.15rem; background: linear-gradient(var(--line), var(--line)) 0 5px / 100% 2px no-repeat; overflow: visible; }
.bar .fill { fill: var(--accent); }
.bar .at { fill: var(--marked); transform: translateX(-1.5px); }
.rose svg { width: 11rem; max-width: 100%; }
.dial { fill: var(--soft); stroke: var(--line); stroke-width: 2; }
.tick-mark { stroke: var(--muted); stroke-width: 2; }
svg .letter { font-size: 15px; font-weight: 600; }
.needle { fill: var(--marked); }
.needle-back { fill: none; stroke: var(--muted); stroke-width: 1.5; }
.hub { fill: var(--back); stroke: var(--text); }
.chart.map { width: 100%; aspect-ratio: 4 / 3; background: var(--sea); border: 1px solid var(--line); overflow: hidden; }
figure.map { max-width: 48rem; }
figure.map figcaption { margin-top: 0.5rem; }
.land { fill: var(--land); stroke: var(--land); vector-effect: non-scaling-stroke; }
.coast { fill: none; stroke: var(--coast); vector-effect: non-scaling-stroke; stroke-linejoin: round; }
.graticule { fill: none; stroke: var(--coast); stroke-opacity: 0.45; stroke-width: 0.75; vector-effect: non-scaling-stroke; }
.area { fill: var(--area); fill-opacity: 0.22; fill-rule: evenodd; }
.outline { fill: none; stroke: var(--area); stroke-width: 2; vector-effect: non-scaling-stroke; stroke-linejoin: round; }
.corner { fill: var(--area); stroke: var(--back); }
svg .corner-number { fill: var(--area); font-size: 12px; font-weight: 600; }
svg .place, svg .corner-number { paint-order: stroke; stroke: var(--back); stroke-width: 3px; stroke-linejoin: round; stroke-opacity: 0.85; }
svg .place { font-size: 11px; }
.globe { fill: var(--sea); }
.rim { fill: none; stroke: var(--coast); stroke-width: 6; }
.here { fill: none; stroke: var(--area); stroke-width: 10; }
.pole { fill: var(--text); }
.scale { stroke: var(--text); stroke-width: 3; }
.scale-back { stroke: var(--back); stroke-width: 6; }
.north { fill: var(--text); stroke: var(--back); paint-order: stroke; stroke-width: 2; }
.source { margin: 0; padding: 0.6rem 0.75rem 0.6rem 4.25em; background: var(--soft); border: 1px solid var(--line); border-radius: 6px; font: 0.8125rem/1.45 ui-monospace, monospace; white-space: pre-wrap; word-break: break-all; tab-size: 4; }
.source.long { padding-left: 6em; }
.source li::marker { color: var(--muted); }
.source .hit { background: color-mix(in srgb, var(--warning) 18%, transparent); }
.index { table-layout: fixed; }
.index th:first-child { width: 24%; }
.index th:nth-child(4) { width: 15%; }
.index th small { display: block; }
.badge.good { color: var(--good); }
.badge.warning { color: var(--warning); }
.badge.error { color: var(--error); }
footer { margin-top: 3rem; color: var(--muted); font-size: 0.8125rem; }
@media (max-width: 40rem) {
  h1 { font-size: 1.4rem; }
  svg .tick { font-size: 8.5px; }
  .bar-name { font-size: 0.8125rem; }
  .index thead { position: absolute; clip-path: inset(50%); height: 1px; width: 1px; overflow: hidden; }
  .index tr { display: block; border-bottom: 1px solid var(--line); padding: 0.4rem 0; }
  .index th, .index td { display: inline-block; border: 0; padding: 0 0.75rem 0 0; }
  .index th { display: block; }
}
@media print {
  @page { size: A4; margin: 16mm 14mm; }
  :root {
    --back: #fff; --soft: #f3f5f7; --text: #000; --muted: #444; --line: #bbb; --accent: #0b5cad; --error: #b3261e;
    --warning: #7a4a00; --good: #1d6b37; --sea: #dbe8ef; --land: #efeadb; --coast: #71838f; --area: #b3261e; --marked: #b3261e;
  }
  html { font-size: 10.5pt; print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  body { max-width: none; padding: 0; }
  nav { display: none; }
  h2, caption, thead, .bar-name, .bands { break-after: avoid; }
  thead { break-inside: avoid; }
  .axis { padding: 0 10px; }
  figure:not(.axis), tr, .tiles, .note, .findings li { break-inside: avoid; }
  figure.map { max-width: 150mm; }
  .source { font-size: 7.5pt; }
  a { color: inherit; text-decoration: none; }
}
)css";
}

} // namespace KORMAK::Inspection
