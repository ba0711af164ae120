// A headless Chromium, driven through two pipes.
'use strict';
const { spawn } = require('child_process');
const fs = require('fs');
const os = require('os');
const path = require('path');

class Browser {
  constructor() {
    this.profile = fs.mkdtempSync(path.join(os.tmpdir(), 'korilan-page-'));
    const switches = ['--headless=new', '--no-sandbox', '--disable-gpu', '--disable-dev-shm-usage', '--no-first-run',
      '--remote-debugging-pipe', '--autoplay-policy=no-user-gesture-required', `--user-data-dir=${this.profile}`];
    this.process = spawn('chromium', switches, { stdio: ['ignore', 'ignore', 'ignore', 'pipe', 'pipe'] });
    this.waiting = new Map();
    this.requests = []; // addresses that pages have asked for
    this.last = 0;
    let text = '';
    this.process.stdio[4].setEncoding('utf8').on('data', (data) => {
      const messages = (text + data).split('\0');
      text = messages.pop();
      for (const message of messages) this.take(JSON.parse(message));
    });
  }

  take({ id, result, error, method, params }) {
    if (method === 'Network.requestWillBeSent') this.requests.push(params.request.url);
    const [done, failed] = this.waiting.get(id) ?? [];
    if (error) failed?.(new Error(error.message));
    else done?.(result);
    this.waiting.delete(id);
  }

  send(method, params = {}) {
    const id = ++this.last;
    this.process.stdio[3].write(JSON.stringify({ id, method, params, sessionId: this.tab }) + '\0');
    return new Promise((done, failed) => this.waiting.set(id, [done, failed]));
  }

  // Opens a page. `before` is a script that runs ahead of the page's own.
  async open(file, width, height, before = '') {
    this.tab = undefined;
    const { targetId } = await this.send('Target.createTarget', { url: 'about:blank' });
    this.tab = (await this.send('Target.attachToTarget', { targetId, flatten: true })).sessionId;
    await this.send('Page.enable');
    await this.send('Network.enable');
    await this.send('Emulation.setDeviceMetricsOverride', { width, height, deviceScaleFactor: 1, mobile: width < 600 });
    await this.send('Page.addScriptToEvaluateOnNewDocument', { source: before });
    await this.send('Page.navigate', { url: `file://${path.resolve(file)}` });
    await this.until('document.readyState === "complete" && document.querySelector("#tools button") !== null');
  }

  async evaluate(expression) {
    const how = { expression, awaitPromise: true, returnByValue: true };
    const { result, exceptionDetails: fault } = await this.send('Runtime.evaluate', how);
    if (fault) throw new Error(fault.exception?.description ?? fault.text);
    return result.value;
  }

  async until(expression, seconds = 20) {
    for (const end = Date.now() + 1000 * seconds; Date.now() < end;) {
      if (await this.evaluate(expression)) return;
      await new Promise((done) => setTimeout(done, 20));
    }
    throw new Error(`waited in vain for ${expression}`);
  }

  // Drops files onto the page, given as name and bytes.
  drop(files) {
    const list = files.map(([name, bytes]) => `[${JSON.stringify(name)}, "${Buffer.from(bytes).toString('base64')}"]`);
    return this.evaluate(`{
      const data = new DataTransfer();
      for (const [name, text] of [${list}]) {
        data.items.add(new File([Uint8Array.from(atob(text), (letter) => letter.charCodeAt(0))], name));
      }
      document.dispatchEvent(new DragEvent('drop', { dataTransfer: data, bubbles: true }));
    }`);
  }

  async close() {
    const ended = new Promise((done) => this.process.once('exit', done));
    this.tab = undefined;
    await this.send('Browser.close').catch(() => {});
    await ended;
    fs.rmSync(this.profile, { recursive: true, force: true });
  }
}

module.exports = { Browser };
