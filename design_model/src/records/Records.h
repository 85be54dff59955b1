// What is kept of the documents: plain data, names not yet resolved.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_RECORDS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_RECORDS_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "xml/Identity.h"

namespace ZelDebugDialog {

/// What a value is, by the type that is declared, or by the format of 2009.
enum class ValueForm {
  integer, ///< Or text, if it is nothing else.
  text,    ///< No expression.
  real,    ///< Of which only integers are known.
  bit,     ///< One, whatever the value has more.
  boolean, ///< "true", "false".
  bits,    ///< "0101" in quotes, or a scaled integer.
  scaled,  ///< #1F, 64K.
};

/// A parameter of a component or a design.
struct ParameterRecord {
  std::string name;
  std::string id; ///< By which expressions and overrides name it; may be empty.
  std::string value;
  int line = 0;
  ValueForm form = ValueForm::integer;
};

/// The parameters of a document.
struct ParameterRecords {
  std::string file;
  std::vector<ParameterRecord> list;
  /// How many, from the front, are the document's own; the others only give
  /// names to expressions.
  std::size_t ownCount = 0;
  /// First of each id. Made when the list is complete, of whose ids it
  /// consists.
  std::unordered_map<std::string_view, std::size_t> byId;
  /// Values are what they are, not expressions: the form of 2009.
  bool areLiteral = false;
};

/// A value given to a parameter of what is referred to.
struct OverrideRecord {
  std::string id;
  std::string value;
  int line = 0;
};

/// A reference to a document, with the values that it gives.
struct ReferenceRecord {
  std::shared_ptr<const Identity> identity; ///< Never null once read.
  std::vector<OverrideRecord> overrides;
  int line = 0;
};

/// A view of a component, as far as it leads to a design.
struct ViewRecord {
  std::string name;
  std::optional<ReferenceRecord> design;
  std::optional<ReferenceRecord> configuration;
  /// To either: the form of 2009.
  std::optional<ReferenceRecord> hierarchy;

  bool leadsToDesign() const { return design || configuration || hierarchy; }
};

struct ComponentRecord {
  Identity identity;
  /// Type name, interfaces, channels, origin, views, `hasCpus`.
  DesignComponent interfaces;
  ParameterRecords parameters;
  std::vector<ViewRecord> views;
  /// First of each name.
  std::unordered_map<std::string, std::size_t> viewByName;
  /// Null when no view leads to a design.
  const ViewRecord *firstViewWithDesign = nullptr;
};

struct InstanceRecord {
  std::string name;
  ReferenceRecord component;
  int line = 0;
};

/// An end of a connection.
struct EndRecord {
  /// In the place of an instance: it is the design's own interface.
  static constexpr auto own = static_cast<std::uint32_t>(-2);

  std::uint32_t instance = own;
  std::uint32_t interface = 0; ///< Index in the names of the design.
  int line = 0;
};

/// Ends at instances that the design doesn't have are left out.
struct ConnectionRecord {
  std::string name;
  std::vector<EndRecord> ends;
  int line = 0;
};

struct DesignRecord {
  Identity identity;
  std::string file;
  ParameterRecords parameters;
  std::vector<InstanceRecord> instances;
  /// Of interfaces at ends of connections, each once.
  std::vector<std::string> interfaceNames;
  std::vector<ConnectionRecord> connections;
  int line = 0;
};

/// A view that is selected for an instance, and the values that go with it.
struct ViewSelection {
  std::string view;
  std::vector<OverrideRecord> overrides;
  int line = 0;
};

struct ConfigurationRecord {
  Identity identity;
  std::string file;
  std::optional<ReferenceRecord> design;
  /// By the name of the instance.
  std::unordered_map<std::string, ViewSelection> views;
  int line = 0;
};

} // namespace ZelDebugDialog

#endif
