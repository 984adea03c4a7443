#!/usr/bin/env python3
"""Opens pages in Chromium and tells what is wrong with them.

browser.py FOLDER looks at each PAGE.html in the folder, in light and in dark colours and at several widths: whether the page
asks for anything, says anything on the console, is wider than the window, has letters that can hardly be read, or lacks what
screen readers need. PAGE.json, where there is one, lists what must be there: [SELECTOR, TEXT], an element that is seen and
holds the text, or [SELECTOR, COUNT], so many elements. FOLDER/pictures.json lists pictures to be taken: [PAGE, SELECTOR, WIDTH,
SCHEME, FILE, HEIGHT], at most that high unless it is 0. Everything that is wrong is a line of output, the last line counts the pages.
"""

import base64
import fcntl
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

WIDTHS = (360, 1024, 1920)
SCHEMES = ("light", "dark")
A4 = (0, 0, 595, 842)
EDGE = 12  # round pictures, in pixels

# What is wrong with the page that is shown, as a list of texts.
FAULTS = r"""
(() => {
  const faults = [];
  const excess = document.documentElement.scrollWidth - window.innerWidth;
  if (excess > 0) faults.push(`is ${excess} px wider than the window`);
  if (document.scripts.length) faults.push('has scripts');
  if (document.querySelector('iframe, object, embed, img, form, base, link:not([href="data:,"])'))
    faults.push('has elements that it should not have');
  for (const element of document.querySelectorAll('*'))
    for (const {name} of element.attributes)
      if (name.startsWith('on')) faults.push(`has an attribute ${name}`);
  const ids = [...document.querySelectorAll('[id]')].map(element => element.id);
  if (new Set(ids).size !== ids.length) faults.push('has an id twice');
  for (const link of document.querySelectorAll('a[href^="#"]'))
    if (!document.getElementById(link.getAttribute('href').slice(1))) faults.push(`has a dead link ${link.getAttribute('href')}`);
  let level = 0;
  for (const heading of document.querySelectorAll('h1, h2, h3, h4')) {
    const next = Number(heading.tagName[1]);
    if (next > level + 1) faults.push(`has a heading of level ${next} behind one of level ${level}`);
    level = next;
  }
  if (document.querySelectorAll('h1').length !== 1) faults.push('has not one heading of level 1');
  if (!document.documentElement.lang || !document.title) faults.push('has no language or title');
  for (const table of document.querySelectorAll('table')) {
    if (!table.caption || !table.caption.textContent.trim()) faults.push('has a table without a caption');
    for (const cell of table.querySelectorAll('th')) if (!cell.scope) faults.push('has a table header without a scope');
  }
  for (const drawing of document.querySelectorAll('svg:not(svg svg)'))
    if (!drawing.getAttribute('aria-label') && drawing.getAttribute('aria-hidden') !== 'true') faults.push('has a drawing without a label');

  const luminance = ([r, g, b]) => [r, g, b].map(c => c / 255).map(c => c <= 0.03928 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4)
    .reduce((sum, c, i) => sum + c * [0.2126, 0.7152, 0.0722][i], 0);
  const parse = colour => (colour.match(/[\d.]+/g) || []).map(Number);
  const seen = new Set();
  const texts = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  while (texts.nextNode() && seen.size < 4000) {
    const element = texts.currentNode.parentElement;
    if (!texts.currentNode.data.trim() || element.closest('svg')) continue;
    let back = element;
    while (back && !(parse(getComputedStyle(back).backgroundColor)[3] !== 0)) back = back.parentElement;
    const style = getComputedStyle(element);
    const background = getComputedStyle(back || document.documentElement).backgroundColor;
    if (background.startsWith('color')) continue;
    const key = style.color + background;
    if (seen.has(key)) continue;
    seen.add(key);
    const [a, b] = [luminance(parse(style.color)), luminance(parse(background))].sort((x, y) => y - x);
    const contrast = (a + 0.05) / (b + 0.05);
    if (contrast < 4.5) faults.push(`has a contrast of ${contrast.toFixed(2)} at "${texts.currentNode.data.trim().slice(0, 30)}"`);
  }

  for (const text of document.querySelectorAll('svg text')) {
    const box = text.getBoundingClientRect();
    if (box.width && (box.right > window.innerWidth || box.left < 0)) faults.push(`cuts off "${text.textContent}"`);
  }
  const labels = new Map();
  for (const text of document.querySelectorAll('svg text')) {
    const drawing = text.closest('svg:not(svg svg)');
    if (!labels.has(drawing)) labels.set(drawing, []);
    labels.get(drawing).push(text);
  }
  for (const group of labels.values()) {
    const boxes = group.map(text => [text.textContent, text.getBoundingClientRect()]);
    for (let i = 0; i < boxes.length; i++)
      for (let j = i + 1; j < boxes.length; j++) {
        const [[one, a], [other, b]] = [boxes[i], boxes[j]];
        const wide = Math.min(a.right, b.right) - Math.max(a.left, b.left), high = Math.min(a.bottom, b.bottom) - Math.max(a.top, b.top);
        if (wide > 1 && high > 3) faults.push(`writes "${one}" over "${other}"`);
      }
  }
  return faults;
})()
"""


class Browser:
    def __init__(self, program, profile):
        # Chromium reads requests from descriptor 3 and answers to 4.
        to_browser, self.requests = (fcntl.fcntl(end, fcntl.F_DUPFD_CLOEXEC, 10) for end in os.pipe())
        self.answers, from_browser = (fcntl.fcntl(end, fcntl.F_DUPFD_CLOEXEC, 10) for end in os.pipe())
        os.dup2(to_browser, 3, inheritable=True)
        os.dup2(from_browser, 4, inheritable=True)
        os.close(to_browser)
        os.close(from_browser)
        arguments = [
            program, "--headless=new", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", "--no-first-run",
            "--disable-background-networking", "--remote-debugging-pipe", f"--user-data-dir={profile}", "about:blank",
        ]
        self.process = subprocess.Popen(arguments, pass_fds=(3, 4), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(3)
        os.close(4)
        self.buffer = b""
        self.number = 0
        self.events = []
        self.session = None
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.call(domain + ".enable")

    def read(self):
        while b"\0" not in self.buffer:
            chunk = os.read(self.answers, 1 << 20)
            if not chunk:
                raise SystemExit("Chromium has ended")
            self.buffer += chunk
        message, self.buffer = self.buffer.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        self.number += 1
        request = {"id": self.number, "method": method, "params": parameters}
        if self.session:
            request["sessionId"] = self.session
        os.write(self.requests, json.dumps(request).encode() + b"\0")
        while True:
            message = self.read()
            if message.get("id") == self.number:
                if "error" in message:
                    raise SystemExit(f"{method}: {message['error']['message']}")
                return message["result"]
            self.events.append(message)

    def evaluate(self, expression):
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True)
        if "exceptionDetails" in result:
            raise SystemExit(result["exceptionDetails"]["exception"]["description"])
        return result["result"].get("value")

    def show(self, path, width, scheme, height=900):
        """Loads the page; returns what it has asked for and said."""
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        self.call("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])
        self.events = []
        url = path.resolve().as_uri()
        self.call("Page.navigate", url=url)
        while not any(event.get("method") == "Page.loadEventFired" for event in self.events):
            self.events.append(self.read())
        self.evaluate("0")
        for event in self.events:
            method, parameters = event.get("method"), event.get("params", {})
            if method == "Network.requestWillBeSent" and parameters["request"]["url"] not in (url, "data:,"):
                yield "asks for " + parameters["request"]["url"]
            if method == "Log.entryAdded":
                yield "has on the console: " + parameters["entry"]["text"]
            if method in ("Runtime.consoleAPICalled", "Runtime.exceptionThrown"):
                yield "runs a script"

    def sheets(self):
        """The sizes of the sheets of paper that the page is printed on, in points."""
        pdf = base64.b64decode(self.call("Page.printToPDF", preferCSSPageSize=True)["data"])
        boxes = re.findall(rb"/MediaBox *\[([-0-9. ]+)\]", pdf)
        return {tuple(round(float(number)) for number in box.split()) for box in boxes}

    def picture(self, selector, target, height):
        box = self.evaluate(f"""(() => {{ const box = document.querySelector({json.dumps(selector)}).getBoundingClientRect();
            const edge = Math.min({EDGE}, box.x);
            return {{x: box.x + scrollX - edge, y: Math.max(box.y + scrollY - edge, 0), width: box.width + 2 * edge,
                height: box.height + 2 * edge}}; }})()""")
        if height:
            box["height"] = min(box["height"], height)
        shot = self.call("Page.captureScreenshot", format="png", captureBeyondViewport=True, clip={**box, "scale": 1})
        pathlib.Path(target).write_bytes(base64.b64decode(shot["data"]))

    def close(self):
        self.process.terminate()
        self.process.wait()


def missing(browser, path):
    """What of the list beside the page is not there."""
    wanted = path.with_suffix(".json")
    for selector, what in json.loads(wanted.read_text()) if wanted.exists() else []:
        if isinstance(what, int):
            count = browser.evaluate(f"document.querySelectorAll({json.dumps(selector)}).length")
            if count != what:
                yield f"has {count} of {selector}, not {what}"
        elif not browser.evaluate(f"""[...document.querySelectorAll({json.dumps(selector)})].some(element =>
                element.getClientRects().length && element.textContent.includes({json.dumps(what)}))"""):
            yield f"does not show {selector} with {what!r}"


def main():
    folder = pathlib.Path(sys.argv[1])
    program = next(filter(None, map(shutil.which, ("chromium", "chromium-browser", "google-chrome"))))
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile:
        browser = Browser(program, profile)
        pages = sorted(folder.glob("*.html"))
        for path in pages:
            for width in WIDTHS:
                for scheme in SCHEMES:
                    faults = list(browser.show(path, width, scheme))
                    faults += browser.evaluate(FAULTS)
                    faults += missing(browser, path)
                    if (width, scheme) == (WIDTHS[0], SCHEMES[0]) and browser.sheets() != {A4}:
                        faults.append("is not printed on A4")
                    for fault in dict.fromkeys(faults):
                        print(f"{path.stem}, {width} px, {scheme}: {fault}")
        pictures = folder / "pictures.json"
        for page, selector, width, scheme, target, height in json.loads(pictures.read_text()) if pictures.exists() else []:
            list(browser.show(folder / page, width, scheme))
            browser.picture(selector, target, height)
        browser.close()
    print(f"{len(pages)} pages")


main()
