#pragma once

/** The style of the page of pictures. */
constexpr const char* pageStyle = R"(:root {
  --page: #f3f3f1; --card: #ffffff; --text: #1e2022; --faint: #5f656b; --line: #dddcd8;
}
@media (prefers-color-scheme: dark) {
  :root { --page: #17191b; --card: #212427; --text: #e8e8e6; --faint: #a2a8ae; --line: #34383c; }
}
* { box-sizing: border-box; }
body {
  margin: 0 auto; padding: 2rem 1.25rem 4rem; max-width: 84rem;
  background: var(--page); color: var(--text);
  font: 1rem/1.45 system-ui, sans-serif; overflow-wrap: anywhere;
}
h1, h2, h3, p { margin: 0; }
h1 { font-size: 1.6rem; line-height: 1.2; }
h2 { font-size: 1.25rem; line-height: 1.3; }
h3 { font-size: 1rem; }
p { color: var(--faint); white-space: pre-line; }
section { margin-top: 2.25rem; padding-top: 1.25rem; border-top: 1px solid var(--line); }
.sets {
  display: grid; gap: 1.25rem; margin-top: 1rem;
  grid-template-columns: repeat(auto-fill, minmax(min(19rem, 100%), 1fr));
}
figure {
  margin: 0; overflow: hidden; background: var(--card);
  border: 1px solid var(--line); border-radius: 0.6rem;
}
figure a { display: block; }
img { display: block; width: 100%; height: auto; background: var(--line); }
figcaption { padding: 0.75rem 1rem 0.9rem; }
.name { display: flex; flex-wrap: wrap; gap: 0.25rem 0.75rem; align-items: baseline; }
.name h3 { flex: 1 1 auto; }
kbd {
  padding: 0 0.4rem; font: 0.8rem/1.5 ui-monospace, monospace; color: var(--faint);
  border: 1px solid var(--line); border-radius: 0.3rem;
}
figcaption p { margin-top: 0.2rem; font-size: 0.9rem; }
@media (max-width: 30rem) { body { padding: 1.25rem 0.75rem 2rem; } }
)";
