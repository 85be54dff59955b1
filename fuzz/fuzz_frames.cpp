// Frames of the protocol from any bytes: whole frames come out whole, however
// the bytes are cut on their way, and what is no frame is refused.
//
// An input is a byte that says how the others are cut, and these.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/Require.h"
#include "pipe/Frames.h"

namespace {

using fuzz::require;
using fuzz::requireSame;
using ZelDebugDialog::protocol::BrokenFrame;
using ZelDebugDialog::protocol::framed;
using ZelDebugDialog::protocol::FrameReader;

/// All that comes of some bytes, as one text.
std::string readIn(std::string_view bytes, std::size_t piece) {
  FrameReader reader;
  std::string found;
  std::string end;
  try {
    for (std::size_t at = 0; at < bytes.size(); at += piece)
      reader.feed(bytes.substr(at, piece));
    reader.expectEnd();
  } catch (const BrokenFrame &broken) {
    end = broken.what();
  }
  while (const auto frame = reader.next()) {
    require(!frame->isTooLong || frame->text.empty(),
            "what is too long is not kept");
    found += framed(frame->text) + (frame->isTooLong ? " too long" : "") + "\n";
  }
  return found + end;
}

/// The frames of a well-formed stream, written and read again.
void requireRoundTrip(std::string_view bytes) {
  FrameReader reader;
  std::string written;
  try {
    reader.feed(bytes);
  } catch (const BrokenFrame &) {
    return;
  }
  while (const auto frame = reader.next())
    if (!frame->isTooLong)
      written += framed(frame->text);
  FrameReader again;
  again.feed(written);
  again.expectEnd();
  std::string read;
  while (const auto frame = again.next())
    read += framed(frame->text);
  requireSame(read, written, "what is written is read");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  if (size == 0)
    return 0;
  const std::string input(data + 1, data + size);
  const std::size_t piece = data[0] % 16 + 1;
  requireSame(readIn(input, piece), readIn(input, input.size() + 1),
              "frames do not depend on how their bytes come");
  requireRoundTrip(input);
  return 0;
}
