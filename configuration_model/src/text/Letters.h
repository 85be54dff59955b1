// Letters of keywords, whose case does not count.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_LETTERS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_LETTERS_H

namespace ZelDebugDialog::model {

constexpr char lowerLetter(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Nothing but ASCII letters has a case here, whatever the locale is.
constexpr bool sameLetter(char a, char b) {
  return lowerLetter(a) == lowerLetter(b);
}

} // namespace ZelDebugDialog::model

#endif
