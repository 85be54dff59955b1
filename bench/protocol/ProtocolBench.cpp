// A change of a configuration, as programs in other languages have it made: by
// the C interface, over the pipes of a server, and by a tool that is started
// for each. What counts is the processor time of all who have a part in it.
#include <cstring>
#include <filesystem>

#include <zeldebugdialog.h>

#include "common/Run.h"
#include "protocol/Children.h"

namespace {

using bench::Child;
using bench::require;

constexpr const char *board = "board.xml";
constexpr const char *processor = "lumacore_0";

std::string request(int id, const std::string &method,
                    const std::string &params) {
  return R"({"jsonrpc":"2.0","id":)" + std::to_string(id) + R"(,"method":")" +
         method + R"(","params":{)" + params + "}}";
}

class CInterface {
public:
  CInterface() { require(zdd_server_create(&server) == ZDD_OK, "a server"); }
  ~CInterface() { zdd_server_release(server); }
  CInterface(const CInterface &) = delete;
  CInterface &operator=(const CInterface &) = delete;

  std::string ask(const std::string &text) {
    char *answer = nullptr;
    std::size_t length = 0;
    require(zdd_answer(server, text.data(), text.size(), &answer, &length) ==
                ZDD_OK,
            text);
    std::string copy(answer, length);
    zdd_answer_release(answer);
    return copy;
  }

  /// Of others than this process.
  static double processorTime() { return 0; }

private:
  zdd_server *server = nullptr;
};

class Pipes {
public:
  std::string ask(const std::string &text) {
    std::fprintf(server.input(), "Content-Length: %zu\r\n\r\n%s", text.size(),
                 text.c_str());
    std::fflush(server.input());
    std::size_t length = 0;
    require(std::fscanf(server.output(), "Content-Length: %zu", &length) == 1,
            "an answer to " + text);
    for (int line = 0; line < 2; ++line) // its end, and that of the header
      for (const char expected : {'\r', '\n'})
        require(std::fgetc(server.output()) == expected, "a header");
    std::string answer(length, ' ');
    require(std::fread(answer.data(), 1, length, server.output()) == length,
            "a whole answer to " + text);
    return answer;
  }

  double processorTime() const { return server.processorTime(); }

private:
  Child server{{BENCH_TOOL, "serve"}};
};

/// Each time another frequency, so that there is something to change.
std::string frequency(int change) {
  return std::to_string(1000000 + change % 1000);
}

void expectFrequency(const std::string &answer, int change) {
  require(answer.find(frequency(change)) != std::string::npos, answer);
}

template <class Transport> class Client {
public:
  Client() {
    ask("board/open", std::string(R"("design":")") + board + '"');
    ask("configuration/open",
        std::string(R"("board":1,"processor":")") + processor + '"');
    ask("configuration/change",
        R"("configuration":2,"values":{"cable.cableType":"quorla_podusb"})");
  }
  std::string change(int number) {
    return ask("configuration/change",
               R"("configuration":2,"values":{"cable.frequency":)" +
                   frequency(number) + '}');
  }

  double processorTime() const { return transport.processorTime(); }

private:
  std::string ask(const std::string &method, const std::string &params) {
    std::string answer = transport.ask(request(++last, method, params));
    require(answer.find("\"result\"") != std::string::npos, answer);
    return answer;
  }

  Transport transport;
  int last = 0;
};

class EachItsTool {
public:
  std::string change(int number) {
    return bench::outputOf({BENCH_TOOL, "command", board, processor, "--cable",
                            "quorla_podusb", "--frequency", frequency(number)});
  }
  static double processorTime() { return 0; } // each of them has ended
};

template <class Way> void add(const std::string &who) {
  const std::string name = "change/" + who + "/1";
  benchmark::RegisterBenchmark(name.c_str(), [](benchmark::State &state) {
    Way way;
    int number = 0;
    expectFrequency(way.change(number), number);
    const auto taken = [&way] {
      return bench::ownProcessorTime() + way.processorTime();
    };
    for ([[maybe_unused]] auto iteration : state) {
      const double before = taken();
      benchmark::DoNotOptimize(way.change(++number));
      state.SetIterationTime(taken() - before);
    }
    expectFrequency(way.change(number + 1), number + 1);
    state.counters["bytes"] = 0;
  })->UseManualTime();
}

} // namespace

int main(int count, char **arguments) {
  // Where the board is, and no option files are.
  std::filesystem::current_path(BENCH_FOLDER);
  add<Client<CInterface>>("C interface");
  add<Client<Pipes>>("pipes of zeldebug serve");
  add<EachItsTool>("zeldebug command for each");
  return bench::run(count, arguments);
}
