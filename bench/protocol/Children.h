// Programs that a benchmark starts and talks to over pipes.
#ifndef ZELDEBUGDIALOG_BENCH_PROTOCOL_CHILDREN_H
#define ZELDEBUGDIALOG_BENCH_PROTOCOL_CHILDREN_H

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace bench {

/// A program that runs, with its standard input and output.
class Child {
public:
  explicit Child(const std::vector<std::string> &words);
  /// Closes its input, and waits for its end.
  ~Child();
  Child(const Child &) = delete;
  Child &operator=(const Child &) = delete;

  /// What it has taken so far, in seconds.
  double processorTime() const;

  std::FILE *input() { return in.get(); }   ///< to write to
  std::FILE *output() { return out.get(); } ///< to read from

private:
  struct Close {
    void operator()(std::FILE *file) const { std::fclose(file); }
  };
  using Stream = std::unique_ptr<std::FILE, Close>;

  pid_t process = 0;
  Stream in;
  Stream out;
};

/// What this process has taken so far, and all children that have ended.
double ownProcessorTime();

/// All that a program writes to its standard output.
std::string outputOf(const std::vector<std::string> &words);

} // namespace bench

#endif
