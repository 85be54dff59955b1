// A dialog made of what the protocol says of settings and of their state: no
// setting has a name here.
const element = (id) => document.getElementById(id);
let rows = [];
let board = 0;
let configuration = 0;
let state = {};

class Refused extends Error {}

async function call(method, params = {}) {
  const response = await fetch("/rpc", { method: "POST", body: JSON.stringify({ method, params }) });
  const { result, error } = await response.json();
  if (error) throw Object.assign(new Refused(error.message), error);
  return result;
}

// RFC 6902, as far as the server writes it.
function apply(document, patch) {
  for (const { op, path, value } of patch) {
    const tokens = path.split("/").slice(1).map((token) => token.replaceAll("~1", "/").replaceAll("~0", "~"));
    const last = tokens.pop();
    const place = tokens.reduce((inner, token) => inner[token], document);
    if (!Array.isArray(place)) {
      if (op === "remove") delete place[last];
      else place[last] = value;
    } else if (op === "remove") place.splice(Number(last), 1);
    else if (op === "add") place.splice(last === "-" ? place.length : Number(last), 0, value);
    else place[Number(last)] = value;
  }
}

// Does something to the configuration, and shows what has come of it.
async function act(method, params = {}) {
  try {
    const { effects = [], patch, file } = await call(`configuration/${method}`, { configuration, ...params });
    apply(state, patch);
    say(file ? `Saved in ${file}` : effects.map(({ setting, why }) => `${setting}: ${why}`).join("; "));
  } catch (error) {
    if (!(error instanceof Refused)) throw error;
    say(error.message, true);
  }
  render();
}

function say(text, isError = false) {
  element("said").textContent = text;
  element("said").className = isError ? "error" : "note";
}

function list(id, items) {
  element(id).replaceChildren(...items.map((item) => {
    const line = document.createElement("li");
    line.append(item);
    return line;
  }));
}

function choicesOf(row, setting) {
  const select = document.createElement("select");
  for (const { value, label, reason } of setting.choices) {
    const option = new Option(reason ? `${label} (${reason})` : label, JSON.stringify(value));
    option.disabled = reason !== undefined;
    option.selected = value === setting.value;
    select.append(option);
  }
  select.onchange = () => act("change", { values: { [row.id]: JSON.parse(select.value) } });
  return select;
}

function chainOf(row, setting) {
  const text = document.createElement("textarea");
  // A text that is no UTF-8 has its bytes beside it, which count.
  const plain = (device) => Object.fromEntries(Object.entries(device)
    .map(([name, { value, bytes }]) => [name, bytes === undefined ? value : { bytes }]));
  text.rows = setting.value.length + 1;
  text.value = state.chain.map((device) => JSON.stringify(plain(device))).join("\n");
  text.onchange = () => {
    try {
      const devices = text.value.split("\n").filter((line) => line.trim()).map((line) => JSON.parse(line));
      act("change", { values: { [row.id]: devices } });
    } catch (error) {
      say(error.message, true);
    }
  };
  return text;
}

function textOf(row, setting) {
  const input = document.createElement("input");
  input.value = setting.draft ?? setting.text;
  input.onchange = () => act("draft", { setting: row.id, text: input.value });
  return input;
}

function lineOf(row) {
  const setting = state.settings[row.id];
  const make = row.kind === "chain" ? chainOf : setting.choices ? choicesOf : textOf;
  const control = make(row, setting);
  control.id = `setting-${row.id}`;
  control.disabled = !setting.applicable;
  control.title = setting.reason ?? row.help;
  const label = document.createElement("label");
  label.htmlFor = control.id;
  label.textContent = row.label;
  label.title = row.help;
  const note = document.createElement("span");
  note.className = setting.error ? "error" : "note";
  note.textContent = setting.error ?? (setting.applicable ? setting.origin : setting.reason);
  const line = document.createElement("div");
  line.className = setting.applicable ? "setting" : "setting off";
  line.append(label, control, note);
  return line;
}

function render() {
  const focused = document.activeElement?.id;
  element("command").value = state.draft ?? state.command ?? "";
  element("undo").disabled = !state.canUndo;
  element("redo").disabled = !state.canRedo;
  element("revert").disabled = !state.dirty;
  list("diagnostics", state.diagnostics.map((one) => {
    const line = document.createElement("span");
    line.className = one.severity === "error" ? "error" : "note";
    line.textContent = one.summary ?? one.message;
    if (one.suggestion) line.append(" ", nearest(one));
    return line;
  }));
  element("lost").hidden = state.losses.length === 0;
  list("losses", state.losses.map(({ field, reason }) => `${field}: ${reason}`));
  const groups = new Map();
  for (const row of rows) {
    if (!row.settable || !(row.id in state.settings)) continue;
    if (!groups.has(row.group)) {
      const group = document.createElement("fieldset");
      const legend = document.createElement("legend");
      legend.textContent = row.group;
      group.append(legend);
      groups.set(row.group, group);
    }
    groups.get(row.group).append(lineOf(row));
  }
  element("form").replaceChildren(...groups.values());
  if (focused) document.getElementById(focused)?.focus();
}

// The word that was meant, one click away. Offsets count bytes.
function nearest({ offset, length, suggestion }) {
  const button = document.createElement("button");
  button.textContent = suggestion;
  button.onclick = () => {
    const bytes = new TextEncoder().encode(element("command").value);
    const part = (from, to) => new TextDecoder().decode(bytes.subarray(from, to));
    act("edit", { command: part(0, offset) + suggestion + part(offset + length) });
  };
  return button;
}

async function open(processor) {
  if (configuration !== 0) await call("configuration/close", { configuration });
  ({ configuration, state } = await call("configuration/open", { board, processor }));
  say("");
  render();
}

const opened = await call("board/open");
board = opened.board;
({ settings: rows } = await call("settings"));
for (const { instanceName } of opened.processors) element("processor").append(new Option(instanceName));
element("processor").onchange = ({ target }) => open(target.value);
element("command").onchange = ({ target }) => act("edit", { command: target.value });
for (const name of ["undo", "redo", "revert", "save"]) element(name).onclick = () => act(name);
await open(opened.processors[0].instanceName);
document.body.dataset.ready = "yes";
