#pragma once

/// The style sheet of the report.
namespace refhost {

inline constexpr const char* kReportStyle = R"(
:root{color-scheme:light}
body{margin:0 auto;max-width:1080px;padding:16px;background:#fff;color:#1f2937;
 font:16px/1.45 Arial,Helvetica,'Liberation Sans','Noto Sans',sans-serif;overflow-wrap:break-word}
h1{font-size:1.6em;line-height:1.2;margin:.4em 0 .2em}
h2{font-size:1.2em;margin:1.8em 0 .5em;border-bottom:1px solid #d1d5db;padding-bottom:.2em;break-after:avoid}
h3{font-size:1em;margin:1.2em 0 .4em;break-after:avoid}
p{margin:.4em 0 .8em;max-width:46em}
.sub{color:#4b5563}
.pair{display:flex;flex-wrap:wrap;gap:16px 32px;align-items:flex-start}
.pair>*{flex:1 1 400px;min-width:0;max-width:600px;margin:0}
figure{break-inside:avoid}
svg{display:block;width:100%;height:auto}
.wide{overflow-x:auto;margin:0 0 1em}
table{border-collapse:collapse;font-size:.9em;line-height:1.3}
th,td{text-align:left;vertical-align:top;padding:4px 14px 4px 0;border-bottom:1px solid #e5e7eb;min-width:3.2em}
th.n{white-space:normal}
th{border-bottom-color:#6b7280;font-weight:bold;vertical-align:bottom}
.n{text-align:right;white-space:nowrap;font-variant-numeric:tabular-nums}
tr{break-inside:avoid}thead{display:table-header-group}
@page{size:A4;margin:16mm 14mm}
@media print{body{padding:0;max-width:none;font-size:10.5pt}.wide{overflow:visible}
 .pair{gap:10px 18px}.pair>*{flex:1 1 45%}th,td{padding-right:9px}}
@media (max-width:600px){body{font-size:15px}table{font-size:.8em}th,td{padding-right:6px;min-width:0}}
@media (max-width:420px){body{padding:10px}table{font-size:.73em}th,td{padding-right:5px}}
)";

}  // namespace refhost
