#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the manual: HTML pages of the documents, with a table of contents each, one style sheet and their pictures.

    make_manual.py SOURCE_FOLDER MANUAL_FOLDER

A link to a document becomes a link to its page. One that leads to nothing ends the build.
"""

import html
import pathlib
import re
import shutil
import sys

import markdown

# The pages in the order of the list on the left. A heading is a text alone. Further documents in docs/ come at the end.
LISTED = [
    ("docs/README.md", "index.html"),
    "Start",
    ("docs/first-test.md", "first-test.html"),
    "Use",
    ("docs/manual.md", "manual.html"),
    ("docs/before-a-night.md", "before-a-night.html"),
    ("docs/troubleshooting.md", "troubleshooting.html"),
    ("docs/files.md", "files.html"),
    "Instrument",
    ("docs/connecting.md", "connecting.html"),
    ("docs/simulator.md", "simulator.html"),
    ("docs/command-language.md", "command-language.html"),
    ("docs/scpi.md", "scpi.html"),
    "Formats",
    ("docs/csv.md", "csv.html"),
    ("docs/sequence-files.md", "sequence-files.html"),
    ("docs/program-files.md", "program-files.html"),
    ("docs/command-files.md", "command-files.html"),
    ("docs/database.md", "database.html"),
    ("resources/examples/README.md", "examples.html"),
    "Program",
    ("CHANGELOG.md", "changelog.html"),
    ("CONTRIBUTING.md", "contributing.html"),
    ("docs/architecture.md", "architecture.html"),
    ("docs/pictures.md", "pictures.html"),
    ("docs/panel-map.md", "panel-map.html"),
]

PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>{title} - ORB</title>
<link rel="stylesheet" href="manual.css">
</head>
<body>
<nav class="pages" aria-label="Pages">
{pages}
</nav>
<main>
{body}
</main>
</body>
</html>
"""


class Manual:
    def __init__(self, source, target):
        self.source = source.resolve()
        self.target = target
        self.pages = LISTED + self.further()
        self.page_of = {(self.source / page[0]).resolve(): page[1] for page in self.pages if isinstance(page, tuple)}
        self.titles = {name: self.title_of(path) for path, name in self.page_of.items()}

    def further(self):
        listed = [page[0] for page in LISTED if isinstance(page, tuple)]
        names = sorted(path.name for path in (self.source / "docs").glob("*.md"))
        return [("docs/" + name, name.replace(".md", ".html")) for name in names if "docs/" + name not in listed]

    @staticmethod
    def title_of(path):
        return re.search(r"^# (.+)$", path.read_text(encoding="utf-8"), re.M).group(1).replace("`", "")

    def make(self):
        self.target.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(pathlib.Path(__file__).with_name("manual.css"), self.target / "manual.css")
        for path, name in self.page_of.items():
            (self.target / name).write_text(self.page(path, name), encoding="utf-8")

    def page(self, path, name):
        converter = markdown.Markdown(extensions=["extra", "toc", "sane_lists"], extension_configs={
            "toc": {"toc_depth": "2-2"}})
        body = converter.convert(path.read_text(encoding="utf-8"))
        body = re.sub(r'(href|src)="([^"]*)"', lambda m: f'{m[1]}="{self.link(path, m[2])}"', body)
        body = re.sub(r'(<a href="([^"#]*)[^"]*">)[A-Za-z/-]+\.md</a>', lambda m: m[1] + self.titles[m[2]] + "</a>", body)
        body = body.replace("<table>", '<div class="table"><table>').replace("</table>", "</table></div>")
        contents = converter.toc if len(converter.toc_tokens) > 1 else ""
        return PAGE.format(title=html.escape(self.titles[name]), pages=self.list_of_pages(name, contents), body=body)

    def list_of_pages(self, current, contents):
        lines = []
        for page in self.pages:
            if isinstance(page, str):
                lines.append(f"<h2>{page}</h2>")
                continue
            mark = ' aria-current="page"' if page[1] == current else ""
            lines.append(f'<a href="{page[1]}"{mark}>{html.escape(self.titles[page[1]])}</a>')
            lines += [contents] if mark else []
        return "\n".join(lines)

    def link(self, path, link):
        """The link in the page of the document at `path`: to a page, to a picture that is copied, or out to the web."""
        if re.match(r"[a-z]+:", link) or link.startswith("#"):
            return link
        address, hash_mark, place = link.partition("#")
        file = (path.parent / address).resolve()
        if file in self.page_of:
            return self.page_of[file] + hash_mark + place
        if file.suffix in (".png", ".gif") and file.is_file():
            return self.copied(file)
        sys.exit(f"{path}: the link to {link} leads to no page of the manual and to no picture")

    def copied(self, picture):
        folder = self.target / "pictures"
        folder.mkdir(exist_ok=True)
        shutil.copyfile(picture, folder / picture.name)
        return "pictures/" + picture.name


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    Manual(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])).make()
