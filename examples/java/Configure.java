// Lists the processors of a board, configures one and saves it, through
// `zeldebug serve`. With Debian's libgoogle-gson-java:
//
//   java -cp /usr/share/java/gson.jar Configure.java DESIGN PROCESSOR [ZELDEBUG]
import com.google.gson.Gson;
import com.google.gson.JsonElement;
import com.google.gson.JsonObject;
import com.google.gson.JsonParser;
import java.io.DataInputStream;
import java.io.EOFException;
import java.io.IOException;
import java.io.OutputStream;
import java.nio.charset.StandardCharsets;
import java.util.List;
import java.util.Map;

public class Configure {
    /** What the model refuses. */
    static class Refused extends Exception {
        final JsonObject data;

        Refused(JsonObject error) {
            super(error.get("message").getAsString());
            data = error.getAsJsonObject("data");
        }
    }

    /** A connection to a server of its own: one request at a time. */
    static class Connection implements AutoCloseable {
        private final Gson gson = new Gson();
        private final Process process;
        private final DataInputStream answers;
        private final OutputStream requests;
        private int last = 0;

        Connection(String tool) throws IOException {
            process = new ProcessBuilder(tool, "serve")
                    .redirectError(ProcessBuilder.Redirect.INHERIT).start();
            answers = new DataInputStream(process.getInputStream());
            requests = process.getOutputStream();
        }

        JsonObject call(String method, Map<String, ?> parameters) throws IOException, Refused {
            byte[] request = gson.toJson(Map.of("jsonrpc", "2.0", "id", ++last, "method", method,
                    "params", parameters)).getBytes(StandardCharsets.UTF_8);
            requests.write(("Content-Length: " + request.length + "\r\n\r\n")
                    .getBytes(StandardCharsets.US_ASCII));
            requests.write(request);
            requests.flush();
            JsonObject answer = read();
            if (answer.has("error"))
                throw new Refused(answer.getAsJsonObject("error"));
            return answer.getAsJsonObject("result");
        }

        private JsonObject read() throws IOException {
            int length = 0;
            for (String line = header(); !line.isEmpty(); line = header())
                if (line.toLowerCase().startsWith("content-length:"))
                    length = Integer.parseInt(line.substring(15).trim());
            byte[] text = new byte[length];
            answers.readFully(text);
            return JsonParser.parseString(new String(text, StandardCharsets.UTF_8))
                    .getAsJsonObject();
        }

        private String header() throws IOException {
            StringBuilder line = new StringBuilder();
            for (int next = answers.read(); next != '\n'; next = answers.read()) {
                if (next < 0)
                    throw new EOFException("the server has ended");
                if (next != '\r')
                    line.append((char) next);
            }
            return line.toString();
        }

        @Override
        public void close() throws IOException {
            requests.close();
        }
    }

    public static void main(String[] arguments) throws Exception {
        String tool = arguments.length > 2 ? arguments[2] : "zeldebug";
        try (Connection server = new Connection(tool)) {
            JsonObject board = server.call("board/open", Map.of("design", arguments[0]));
            for (JsonElement one : board.getAsJsonArray("processors"))
                System.out.println(text(one, "instanceName") + " " + text(one, "type"));

            JsonObject opened = server.call("configuration/open",
                    Map.of("board", board.get("board"), "processor", arguments[1]));
            JsonElement configuration = opened.get("configuration");
            System.out.println("now: " + text(opened.get("state"), "command"));
            JsonObject changed = server.call("configuration/change",
                    Map.of("configuration", configuration, "values",
                            Map.of("cable.cableType", "quorla_podusb", "cable.frequency", "3 MHz")));
            for (JsonElement effect : changed.getAsJsonArray("effects"))
                System.out.println(text(effect, "setting") + ": " + text(effect, "after") + " ("
                        + text(effect, "why") + ")");
            try {
                server.call("configuration/change",
                        Map.of("configuration", configuration, "values", Map.of("connection", "vp")));
            } catch (Refused refusal) {
                System.out.println(text(refusal.data, "kind") + ": " + refusal.getMessage());
            }
            JsonObject saved = server.call("configuration/save", Map.of("configuration", configuration));
            for (String member : List.of("file", "command"))
                System.out.println(member + ": " + text(saved, member));
        }
    }

    private static String text(JsonElement object, String member) {
        return object.getAsJsonObject().get(member).getAsString();
    }
}
