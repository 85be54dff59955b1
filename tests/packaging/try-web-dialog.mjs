// try-web-dialog.mjs CHROMIUM BRIDGE DESIGN ZELDEBUG: opens the dialog in a
// browser, as a person would: chooses a cable, sees the command change, pastes a
// faulty command, mends it by a click, and saves. Works in a folder with etc/.
import assert from "node:assert/strict";
import { spawn } from "node:child_process";
import { existsSync, mkdtempSync, readFileSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { setTimeout as pause } from "node:timers/promises";

const [chromium, bridgeFile, design, tool] = process.argv.slice(2);
const profile = mkdtempSync(join(tmpdir(), "web-dialog-"));
const bridge = spawn(process.execPath, [bridgeFile, design, "0", tool], { stdio: ["ignore", "pipe", "inherit"] });
const browser = spawn(chromium, ["--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
  "--remote-debugging-pipe", `--user-data-dir=${profile}`], { stdio: ["ignore", "ignore", "ignore", "pipe", "pipe"] });

// The browser's own protocol over pipes: JSON with a null byte behind it.
let received = "";
let last = 0;
const waiting = new Map();
browser.stdio[4].on("data", (bytes) => {
  received += bytes;
  for (let end = received.indexOf("\0"); end >= 0; end = received.indexOf("\0")) {
    const message = JSON.parse(received.slice(0, end));
    received = received.slice(end + 1);
    waiting.get(message.id)?.(message);
  }
});
function send(method, params = {}, sessionId = undefined) {
  const id = ++last;
  browser.stdio[3].write(`${JSON.stringify({ id, method, params, sessionId })}\0`);
  return new Promise((resolve, reject) =>
    waiting.set(id, ({ result, error }) => (error ? reject(new Error(error.message)) : resolve(result))));
}

try {
  const address = await new Promise((resolve) => bridge.stdout.once("data", (bytes) => resolve(String(bytes).trim())));
  const { targetId } = await send("Target.createTarget", { url: address });
  const { sessionId } = await send("Target.attachToTarget", { targetId, flatten: true });
  const ask = async (expression) => {
    const { result, exceptionDetails } = await send("Runtime.evaluate",
      { expression, awaitPromise: true, returnByValue: true }, sessionId);
    assert.equal(exceptionDetails, undefined, JSON.stringify(exceptionDetails));
    return result.value;
  };
  const until = async (expression) => {
    for (let round = 0; round < 600; ++round) {
      if (await ask(`Boolean(${expression})`)) return;
      await pause(50);
    }
    assert.fail(`never: ${expression}; the page: ${await ask("document.body.innerText")}`);
  };
  const command = "document.getElementById('command').value";
  const change = (id, value) => ask(`{
    const control = document.getElementById(${JSON.stringify(id)});
    control.value = ${JSON.stringify(value)};
    control.dispatchEvent(new Event("change"));
  }`);

  await until("document.body?.dataset.ready");
  assert.equal(await ask(command), "connect lc hdu -debugdevice cpunr 1");
  await change("setting-cable.cableType", "3");
  const chosen = "connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000 -debugdevice cpunr 1";
  await until(`${command} === ${JSON.stringify(chosen)}`);
  assert.match(await ask("document.getElementById('said').textContent"), /choosing a cable brings its port and frequency/);

  await change("command", chosen.replace("-cable", "-cabel"));
  await until("document.querySelector('#diagnostics button')?.textContent === '-cable'");
  assert.match(await ask("document.getElementById('diagnostics').innerText"), /'-cabel' is no option here/);
  await ask("document.querySelector('#diagnostics button').click()");
  await until(`${command} === ${JSON.stringify(chosen)} && !document.querySelector('#diagnostics button')`);

  await change("setting-cable.frequency", "three");
  await until("document.querySelector('.setting .error')");
  await ask("document.getElementById('undo').click()");
  await until("!document.querySelector('.setting .error')");
  await ask("document.getElementById('save').click()");
  await until("document.getElementById('said').textContent.startsWith('Saved in ')");
  assert.equal(readFileSync("etc/kvo_lumacore_0.opt", "utf8"), chosen);
  console.log("the dialog in a browser configures and saves");
} finally {
  browser.kill();
  bridge.kill();
  await pause(500);
  if (existsSync(profile)) rmSync(profile, { recursive: true, force: true, maxRetries: 5 });
}
