#!/usr/bin/env python3
"""Opens a page in a headless Chromium, and says what is wrong with it as a reader would see it.

usage: check-plan-page.py PAGE...

Of each page: nothing is said on the console, nothing is asked of any network or file, the outline of each page of the run
is visible, texts stand out from their ground by 4.5 to 1 and outlines by 3 to 1, in light and in dark, nothing is wider than
a telephone, and it looks the same where scripts are off.
"""
import base64
import json
import os
import pathlib
import subprocess
import sys
import tempfile

BROWSER = ['chromium', '--headless', '--no-sandbox', '--disable-gpu', '--disable-background-networking', '--no-first-run',
           '--disable-component-update', '--host-resolver-rules=MAP * ~NOTFOUND', '--remote-debugging-pipe', 'about:blank']
TELEPHONE, DESK = 360, 1200
FINDINGS = []

# Runs in the page, without changing it. A colour that shines through is laid over what is below it.
MEASURE = r'''(() => {
  const channels = text => (text.match(/[\d.]+/g) || []).map(Number);
  const over = (front, back) => {
    const alpha = front.length > 3 ? front[3] : 1;
    return [0, 1, 2].map(i => front[i] * alpha + back[i] * (1 - alpha));
  };
  const groundOf = element => {
    const layers = [];
    for (let at = element; at; at = at.parentElement) layers.push(channels(getComputedStyle(at).backgroundColor));
    return layers.reverse().reduce((ground, layer) => over(layer, ground), [255, 255, 255]);
  };
  const light = colour => {
    const [r, g, b] = colour.map(c => c / 255).map(c => c <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4);
    return 0.2126 * r + 0.7152 * g + 0.0722 * b;
  };
  const contrast = (one, other) => {
    const [low, high] = [light(one), light(other)].sort((a, b) => a - b);
    return (high + 0.05) / (low + 0.05);
  };
  for (const details of document.querySelectorAll('details')) details.open = true;
  const texts = [];
  const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  while (walker.nextNode()) {
    const element = walker.currentNode.parentElement, text = walker.currentNode.data.trim();
    if (!text) continue;
    const ground = groundOf(element);
    texts.push({text: text.slice(0, 40), contrast: contrast(over(channels(getComputedStyle(element).color), ground), ground),
                isSeen: element.getClientRects().length > 0});
  }
  const outlines = [...document.querySelectorAll('ol.pages li')].map(element => {
    const style = getComputedStyle(element), box = element.getBoundingClientRect();
    const ground = groundOf(element.parentElement);
    return {text: element.innerText.slice(0, 40), width: box.width, height: box.height, left: box.left, right: box.right,
            line: parseFloat(style.borderTopWidth), style: style.borderTopStyle, opacity: Number(style.opacity),
            shown: style.visibility === 'visible', contrast: contrast(over(channels(style.borderTopColor), ground), ground)};
  });
  return {texts, outlines, wide: document.documentElement.scrollWidth, view: document.documentElement.clientWidth,
          ground: getComputedStyle(document.body).backgroundColor};
})()'''


class Browser:
    """Speaks with a browser over two pipes. What it says without being asked is kept."""

    def __init__(self, home):
        here_in, there_out = os.pipe()
        there_in, here_out = os.pipe()

        def lay_pipes():
            # The browser reads from 3 and writes to 4, whatever numbers the pipes have here.
            kept_in, kept_out = os.dup(there_in), os.dup(there_out)
            os.dup2(kept_in, 3)
            os.dup2(kept_out, 4)

        self.process = subprocess.Popen([*BROWSER[:-1], f'--user-data-dir={home}', BROWSER[-1]], preexec_fn=lay_pipes,
                                        close_fds=False, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(there_in)
        os.close(there_out)
        self.writer, self.reader = os.fdopen(here_out, 'wb', 0), os.fdopen(here_in, 'rb', 0)
        self.number, self.events, self.session, self.rest = 0, [], None, b''

    def read(self):
        while b'\0' not in self.rest:
            piece = self.reader.read(1 << 16)
            if not piece:
                raise SystemExit('The browser has ended.')
            self.rest += piece
        line, self.rest = self.rest.split(b'\0', 1)
        return json.loads(line)

    def ask(self, method, **parameters):
        self.number += 1
        question = {'id': self.number, 'method': method, 'params': parameters}
        if self.session:
            question['sessionId'] = self.session
        self.writer.write(json.dumps(question).encode() + b'\0')
        while True:
            message = self.read()
            if message.get('id') == self.number:
                if 'error' in message:
                    raise SystemExit(f"{method}: {message['error']['message']}")
                return message['result']
            self.events.append(message)

    def wait_for(self, method):
        while not any(event.get('method') == method for event in self.events):
            self.events.append(self.read())

    def open(self, page, scripts=True, scheme='light', width=DESK):
        self.ask('Emulation.setScriptExecutionDisabled', value=not scripts)
        self.ask('Emulation.setEmulatedMedia', features=[{'name': 'prefers-color-scheme', 'value': scheme}])
        self.ask('Emulation.setDeviceMetricsOverride', width=width, height=800, deviceScaleFactor=1, mobile=width == TELEPHONE)
        self.events = []
        self.ask('Page.navigate', url=page)
        self.wait_for('Page.loadEventFired')

    def picture(self):
        return base64.b64decode(self.ask('Page.captureScreenshot', captureBeyondViewport=True)['data'])

    def measure(self):
        answer = self.ask('Runtime.evaluate', expression=MEASURE, returnByValue=True)
        if 'exceptionDetails' in answer:
            raise SystemExit(json.dumps(answer['exceptionDetails']))
        return answer['result']['value']

    def close(self):
        self.session = None
        self.ask('Browser.close')
        self.process.wait(30)


def complain(page, text):
    FINDINGS.append(f'{page}: {text}')


def check_events(name, page, events):
    for event in events:
        if event.get('method') in ('Runtime.consoleAPICalled', 'Runtime.exceptionThrown', 'Log.entryAdded'):
            complain(name, f"the console says {json.dumps(event['params'])[:300]}")
        if event.get('method') == 'Network.requestWillBeSent' and event['params']['request']['url'] != page:
            complain(name, f"asks for {event['params']['request']['url']}")


def check_look(name, look, width):
    if not look['texts'] or not look['outlines']:
        complain(name, 'shows no text or no outline')
    for text in look['texts']:
        if not text['isSeen'] or text['contrast'] < 4.5:
            complain(name, f"\"{text['text']}\": contrast {text['contrast']:.2f}, seen: {text['isSeen']}")
    for outline in look['outlines']:
        visible = (outline['width'] > 40 and outline['height'] > 20 and outline['line'] >= 1 and outline['shown'] and
                   outline['style'] in ('solid', 'dashed') and outline['opacity'] == 1 and outline['left'] >= 0 and
                   outline['right'] <= width)
        if not visible or outline['contrast'] < 3:
            complain(name, f'an outline cannot be seen: {outline}')
    if look['wide'] > look['view']:
        complain(name, f"is {look['wide']} wide in a window of {look['view']}")


def check(browser, path):
    page = pathlib.Path(path).resolve().as_uri()
    grounds = set()
    for scheme in ('light', 'dark'):
        for width in (DESK, TELEPHONE):
            name = f'{path} ({scheme}, {width})'
            browser.open(page, scheme=scheme, width=width)
            before = browser.picture()
            look = browser.measure()
            check_events(name, page, browser.events)
            check_look(name, look, width)
            grounds.add(look['ground'])
            browser.open(page, scripts=False, scheme=scheme, width=width)
            if browser.picture() != before:
                complain(name, 'looks different where scripts are off')
    if len(grounds) != 2:
        complain(path, f'has the same ground in light and in dark: {grounds}')
    print(f'{path}: {len(look["texts"])} texts, {len(look["outlines"])} outlines')


def main():
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as home:
        browser = Browser(home)
        target = browser.ask('Target.createTarget', url='about:blank')['targetId']
        browser.session = browser.ask('Target.attachToTarget', targetId=target, flatten=True)['sessionId']
        for domain in ('Page', 'Runtime', 'Log', 'Network'):
            browser.ask(f'{domain}.enable')
        for path in sys.argv[1:]:
            check(browser, path)
        browser.close()
    for finding in FINDINGS:
        print(finding)
    sys.exit(bool(FINDINGS))


if __name__ == '__main__':
    main()
