// Message output, as the vendor's common library offers it.
//
// The engine sends one kind of message: the text of a refused connect command
// (`EngineImp::GetProcessorInfo`). The implementation that comes with this
// project writes to standard error; whoever has the vendor's library links that
// instead, and a program that defines `eval` itself replaces it.
#ifndef COMMSGMGR_H
#define COMMSGMGR_H

namespace ComMsgMgr {

/// Where messages go.
class sendMsg {
public:
  /// Sends one message, formatted as by printf from `format` and what follows.
  /// @param kind        message kind; 1 is an error
  /// @param sourcePath  source folder of the sender
  /// @param line        line number of the sender
  /// @param tool        tag of the sending tool
  /// @param mask        message mask
  /// @param format      the text, with the conversions of printf
  static void eval(int kind, const char *sourcePath, int line, const char *tool,
                   unsigned mask, const char *format, ...);
};

} // namespace ComMsgMgr

#endif
