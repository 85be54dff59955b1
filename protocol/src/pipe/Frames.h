// The frames of a byte stream, each the text of one request or answer:
//
//   Content-Length: N
//                        an empty line
//   N bytes
//
// Lines end with CR LF, or LF alone. Other fields ("Content-Type: ...") may
// stand beside the length, and are passed over.
#ifndef ZELDEBUGDIALOG_PROTOCOL_PIPE_FRAMES_H
#define ZELDEBUGDIALOG_PROTOCOL_PIPE_FRAMES_H

#include <cstdint>
#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ZelDebugDialog::protocol {

/// Where the next frame begins can no longer be told.
class BrokenFrame : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

struct Frame {
  bool isTooLong = false; ///< for a request; the text was passed over
  std::string text;
};

/// Cuts frames out of bytes that come in pieces of any size. It keeps no more
/// than one text of the longest request beside what it was given.
class FrameReader {
public:
  /// @throws BrokenFrame; nothing can be read from then on
  void feed(std::string_view bytes);
  /// The next whole frame, if there is one.
  std::optional<Frame> next();
  /// @throws BrokenFrame if the bytes end inside a frame
  void expectEnd() const;

private:
  void feedHeader(std::string_view &bytes);
  void feedText(std::string_view &bytes);
  void readField(std::string_view field);

  std::string line;           ///< of the header, as far as it has come in
  std::size_t headerSize = 0; ///< so far
  std::optional<std::uint64_t> length;
  bool isInText = false;
  std::uint64_t missing = 0; ///< bytes of the text that are to come
  Frame frame;
  std::deque<Frame> whole;
};

/// A text with its header.
std::string framed(const std::string &text);

} // namespace ZelDebugDialog::protocol

#endif
