// Kind tables: files that let components play the part of known ones.
//
// A row a line, with three words: a pattern of vendor:library:name:version, a
// kind, and the type name by which the debugger knows it. "*" stands for any
// text and "?" for any character of a part. The first row that fits counts.
// "#" begins a comment.
//
//   example.org:cpu:tiny_riscv:*   processor      lumacore
//   example.org:debug:jtag_*:1.0   debug-module   hdu
//   example.org:io:serial:*        other          uart_mini_cedar
//
// A row "connect" says of instances, by their full names or patterns of them,
// that a processor is on a debug module: ConnectRows.h.
//
//   connect   soc.cluster?.core    soc.debug
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_KINDTABLE_H
#define ZELDEBUGDIALOG_DESIGNMODEL_KINDTABLE_H

#include <string>
#include <string_view>
#include <vector>

#include "messages/DiagnosticList.h"
#include "xml/DocumentSource.h"
#include "xml/Identity.h"

namespace ZelDebugDialog {

struct Kind {
  DesignRole role = DesignRole::other;
  std::string typeName;
};

/// "connect PROCESSOR MODULE", not yet applied to the instances of a design.
struct ConnectRow {
  std::string processor;
  std::string debugModule;
  int line = 0;
};

class KindTable {
public:
  /// False: the file can't be read, or a row is none; errors say which.
  bool read(const DocumentSource &source, const std::string &file,
            DiagnosticList &diagnostics);

  /// Null when no row fits.
  const Kind *find(const Identity &identity) const;

  /// Reports the rows that fit none of the components.
  void reportUnused(const std::vector<Identity> &components,
                    DiagnosticList &diagnostics) const;

  /// In the order of the file.
  const std::vector<ConnectRow> &connectRows() const { return connects; }

private:
  struct Row {
    Identity pattern;
    Kind kind;
    int line = 0;
  };

  bool readLine(const std::string &file, int number, const std::string &line,
                DiagnosticList &diagnostics);

  std::string tableFile;
  std::vector<Row> rows;
  std::vector<ConnectRow> connects;
};

} // namespace ZelDebugDialog

#endif
