#ifndef VENDOR_COMMSGMGR_H
#define VENDOR_COMMSGMGR_H

namespace ComMsgMgr {

class sendMsg {
public:
  static void eval(int kind, const char *sourcePath, int line, const char *tool,
                   unsigned mask, const char *format, ...);
};

} // namespace ComMsgMgr

#endif
