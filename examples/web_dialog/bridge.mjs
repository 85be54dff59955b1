// Shows a dialog in a browser: serves the page beside it, and hands its requests
// on to `zeldebug serve`.
//
//   node bridge.mjs DESIGN [PORT] [ZELDEBUG]
import { readFile } from "node:fs/promises";
import { createServer } from "node:http";
import { Connection, Refused } from "../javascript/connection.mjs";

const [design, port = "8642", tool] = process.argv.slice(2);
const server = new Connection(tool);
const types = { "/": ["index.html", "text/html"], "/dialog.mjs": ["dialog.mjs", "text/javascript"] };

async function answer(request, response) {
  if (request.method === "POST" && request.url === "/rpc") {
    let text = "";
    for await (const piece of request) text += piece;
    const { method, params } = JSON.parse(text);
    // A page opens the design that this program was started with, and no other.
    if (method === "board/open") params.design = design;
    response.setHeader("Content-Type", "application/json");
    try {
      response.end(JSON.stringify({ result: await server.call(method, params) }));
    } catch (error) {
      if (!(error instanceof Refused)) throw error;
      response.end(JSON.stringify({ error: { ...error, message: error.message } }));
    }
    return;
  }
  const found = types[request.url];
  if (found === undefined) {
    response.writeHead(404).end();
    return;
  }
  response.setHeader("Content-Type", `${found[1]}; charset=utf-8`);
  response.end(await readFile(new URL(found[0], import.meta.url)));
}

const pages = createServer((request, response) =>
  answer(request, response).catch((error) => response.writeHead(500).end(error.message)));
// For this machine alone.
pages.listen(Number(port), "127.0.0.1", () =>
  console.log(`http://127.0.0.1:${pages.address().port}/`));
