// Lists the processors of a board, configures one and saves it.
//
//   node configure.mjs DESIGN PROCESSOR [ZELDEBUG]
import { Connection, Refused } from "./connection.mjs";

const [design, processor, tool] = process.argv.slice(2);
const server = new Connection(tool);
try {
  const { board, processors } = await server.call("board/open", { design });
  for (const one of processors)
    console.log(one.instanceName, one.type, one.connections.join(" "));

  const { configuration, state } = await server.call("configuration/open", { board, processor });
  console.log("now:", state.command);
  const { effects, patch } = await server.call("configuration/change", {
    configuration,
    values: { "cable.cableType": "quorla_podusb", "cable.frequency": "3 MHz" },
  });
  for (const { setting, after, why } of effects) console.log(`${setting}: ${after} (${why})`);
  console.log("then:", patch.find(({ path }) => path === "/command").value);

  try {
    await server.call("configuration/change", { configuration, values: { connection: "vp" } });
  } catch (error) {
    if (!(error instanceof Refused)) throw error;
    console.log(`${error.kind}: ${error.message}`);
  }
  const saved = await server.call("configuration/save", { configuration });
  console.log("saved:", saved.file);
} finally {
  server.close();
}
