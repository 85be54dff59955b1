// A connection to `zeldebug serve`: requests of JSON-RPC 2.0 in frames of a
// length and as many bytes.
import { spawn } from "node:child_process";

export class Refused extends Error {
  constructor(error) {
    super(error.message);
    const { message, ...fields } = error.data ?? {};
    // The problem without its subject; kind, setting, accepted, suggestion ...
    Object.assign(this, fields, { code: error.code, problem: message });
  }
}

export class Connection {
  #waiting = new Map();
  #received = Buffer.alloc(0);
  #last = 0;

  constructor(tool = "zeldebug") {
    this.process = spawn(tool, ["serve"], { stdio: ["pipe", "pipe", "inherit"] });
    this.process.stdout.on("data", (bytes) => this.#receive(bytes));
    this.process.on("error", (error) => this.#end(error));
    this.process.on("exit", () => this.#end(new Error("the server has ended")));
  }

  // A promise of the result.
  call(method, params = {}) {
    const id = ++this.#last;
    const text = Buffer.from(JSON.stringify({ jsonrpc: "2.0", id, method, params }));
    this.process.stdin.write(`Content-Length: ${text.length}\r\n\r\n`);
    this.process.stdin.write(text);
    return new Promise((resolve, reject) => this.#waiting.set(id, { resolve, reject }));
  }

  close() {
    this.process.stdin.end();
  }

  #receive(bytes) {
    this.#received = Buffer.concat([this.#received, bytes]);
    for (;;) {
      const end = this.#received.indexOf("\r\n\r\n");
      if (end < 0) return;
      const header = this.#received.toString("latin1", 0, end);
      const length = Number(/^Content-Length: (\d+)$/im.exec(header)[1]);
      if (this.#received.length < end + 4 + length) return;
      const answer = JSON.parse(this.#received.toString("utf8", end + 4, end + 4 + length));
      this.#received = this.#received.subarray(end + 4 + length);
      const { resolve, reject } = this.#waiting.get(answer.id);
      this.#waiting.delete(answer.id);
      if (answer.error) reject(new Refused(answer.error));
      else resolve(answer.result);
    }
  }

  #end(error) {
    for (const { reject } of this.#waiting.values()) reject(error);
    this.#waiting.clear();
  }
}
