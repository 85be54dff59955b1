#include "pipe/ServePipe.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include "pipe/Frames.h"
#include "pipe/WriteAll.h"

namespace ZelDebugDialog::protocol {

namespace {

std::string problemOf(const char *what, int error) {
  return std::string(what) + ": " + std::generic_category().message(error);
}

/// What waits to be done.
struct Waiting {
  std::shared_ptr<Call> call; ///< null for a frame that was too long
  std::size_t size = 0;       ///< of its text
};

/// Hands what one thread reads to the one that does it.
class Queue {
public:
  /// Waits while too much is waiting.
  /// @return whether anybody takes it
  bool put(Waiting waiting) {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return isAbandoned || hasPlace(); });
    if (isAbandoned)
      return false;
    bytes += waiting.size;
    all.push_back(std::move(waiting));
    changed.notify_all();
    return true;
  }
  /// Nothing more comes.
  void close(std::string why) {
    const std::lock_guard<std::mutex> lock(mutex);
    isClosed = true;
    problem = std::move(why);
    changed.notify_all();
  }
  /// Nothing more is taken.
  void abandon() {
    const std::lock_guard<std::mutex> lock(mutex);
    isAbandoned = true;
    changed.notify_all();
  }
  /// Waits for one; nothing at the end.
  std::optional<Waiting> take() {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return isClosed || !all.empty(); });
    if (all.empty())
      return std::nullopt;
    Waiting first = std::move(all.front());
    all.pop_front();
    bytes -= first.size;
    changed.notify_all();
    return first;
  }
  std::string whyClosed() {
    const std::lock_guard<std::mutex> lock(mutex);
    return problem;
  }

private:
  static constexpr std::size_t mostCalls = 1000;
  static constexpr std::size_t mostBytes = 64UL * 1024 * 1024;

  bool hasPlace() const { return all.size() < mostCalls && bytes <= mostBytes; }

  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Waiting> all;
  std::size_t bytes = 0;
  bool isClosed = false;
  bool isAbandoned = false;
  std::string problem;
};

/// Wakes a thread that waits for input.
class Bell {
public:
  Bell() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
      throw std::system_error(errno, std::generic_category(), "pipe");
    for (int &end : ends)
      moveUp(end);
  }
  ~Bell() {
    close(ends[0]);
    close(ends[1]);
  }
  Bell(const Bell &) = delete;
  Bell &operator=(const Bell &) = delete;

  /// In a program without standard input or output the pipe would be taken for
  /// them.
  static void moveUp(int &end) {
    constexpr int firstOfOurs = 3;
    if (end >= firstOfOurs)
      return;
    const int moved = fcntl(end, F_DUPFD_CLOEXEC, firstOfOurs);
    if (moved < 0)
      throw std::system_error(errno, std::generic_category(), "pipe");
    close(std::exchange(end, moved));
  }
  void ring() const {
    const char any = 0;
    while (write(ends[1], &any, 1) < 0 && errno == EINTR)
      continue;
  }
  int descriptor() const { return ends[0]; }

private:
  std::array<int, 2> ends{-1, -1};
};

/// Reads frames until one of the ends.
class Reader {
public:
  Reader(Server &ofServer, Queue &toQueue, int from, int stop)
      : server(ofServer), queue(toQueue), input(from), bell(stop) {}

  void run() {
    std::string problem;
    try {
      read();
    } catch (const std::exception &error) {
      problem = error.what();
    }
    queue.close(std::move(problem));
  }

private:
  /// @return whether there is input, or its end, before the bell rings
  bool waitForInput() const {
    std::array<pollfd, 2> ends{{{input, POLLIN, 0}, {bell, POLLIN, 0}}};
    while (poll(ends.data(), ends.size(), -1) < 0)
      if (errno != EINTR)
        throw std::runtime_error(problemOf("standard input", errno));
    return ends[1].revents == 0;
  }

  void read() {
    constexpr std::size_t portion = 65536;
    std::string buffer(portion, '\0');
    while (waitForInput()) {
      const ssize_t count = ::read(input, buffer.data(), buffer.size());
      if (count < 0 && (errno == EINTR || errno == EAGAIN))
        continue;
      if (count < 0)
        throw std::runtime_error(problemOf("standard input", errno));
      if (count == 0)
        return frames.expectEnd();
      const bool isWhole = feed(
          std::string_view(buffer).substr(0, static_cast<std::size_t>(count)));
      if (!isWhole)
        return;
    }
  }

  /// What comes before a broken frame is done as well.
  /// @return false if no more is to be read
  bool feed(std::string_view bytes) {
    std::optional<BrokenFrame> broken;
    try {
      frames.feed(bytes);
    } catch (const BrokenFrame &fault) {
      broken = fault;
    }
    while (std::optional<Frame> frame = frames.next()) {
      Waiting waiting;
      waiting.size = frame->text.size();
      if (!frame->isTooLong)
        waiting.call = server.Accept(frame->text);
      const bool isExit = waiting.call && waiting.call->IsExit();
      if (!queue.put(std::move(waiting)) || isExit)
        return false;
    }
    if (broken)
      throw BrokenFrame(*broken);
    return true;
  }

  Server &server;
  Queue &queue;
  int input;
  int bell;
  FrameReader frames;
};

/// Reads in a thread of its own as long as it lives.
class ReadingThread {
public:
  ReadingThread(Server &server, Queue &toQueue, int input)
      : queue(toQueue), reader(server, toQueue, input, bell.descriptor()),
        thread([this] { reader.run(); }) {}
  ~ReadingThread() {
    queue.abandon();
    bell.ring();
    thread.join();
  }
  ReadingThread(const ReadingThread &) = delete;
  ReadingThread &operator=(const ReadingThread &) = delete;

private:
  Queue &queue;
  Bell bell;
  Reader reader;
  std::thread thread;
};

std::optional<std::string> finish(Server &server, const Waiting &waiting) {
  return waiting.call ? server.Finish(waiting.call) : answerTooLong();
}

/// Does what waits, until nothing more comes.
/// @return 0, or the error of writing
int work(Server &server, Queue &queue, int output, const Log &log) {
  while (const std::optional<Waiting> waiting = queue.take()) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    const std::optional<std::string> answer = finish(server, *waiting);
    if (log) {
      const auto time = std::chrono::duration_cast<std::chrono::microseconds>(
          Clock::now() - start);
      log((waiting->call ? waiting->call->Name() : "too long") + ": " +
          std::to_string(waiting->size) + " bytes, answered with " +
          std::to_string(answer ? answer->size() : 0) + " in " +
          std::to_string(time.count()) + " us");
    }
    const int problem = answer ? writeAll(output, framed(*answer)) : 0;
    if (problem != 0)
      return problem;
  }
  return 0;
}

} // namespace

std::string servePipe(Server &server, int input, int output, const Log &log) {
  Queue queue;
  int problem = 0;
  {
    const ReadingThread thread(server, queue, input);
    problem = work(server, queue, output, log);
  }
  if (problem != 0)
    return problem == EPIPE ? "" : problemOf("standard output", problem);
  return queue.whyClosed();
}

} // namespace ZelDebugDialog::protocol
