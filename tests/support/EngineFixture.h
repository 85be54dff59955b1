// An engine with its state in reach, for tests of one operation at a time.
//
// `EngineFixture` has no processor. `RecordFixture` makes a record of the test
// current. `DesignFixture` has a design and releases what discovery made.
#ifndef TESTS_SUPPORT_ENGINEFIXTURE_H
#define TESTS_SUPPORT_ENGINEFIXTURE_H

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "support/FakeDesign.h"

namespace support {

class EngineFixture : public ::testing::Test {
protected:
  EngineFixture() : state(*engine.GetProcessorList(nullptr)) {}

  std::string errorText() {
    std::string text = "not overwritten";
    engine.GetErrorStr(text);
    return text;
  }

  ZelDebugDialog::Engine engine;
  ZelDebugDialog::EngineImp &state;
};

class RecordFixture : public EngineFixture {
protected:
  RecordFixture() { state.currentProcessor = &record; }
  ~RecordFixture() override { state.currentProcessor = nullptr; }

  ZelDebugDialog::ProcessorInfoImp record;
};

class DesignFixture : public EngineFixture {
protected:
  ~DesignFixture() override { ZelDebugDialog::ReleaseProcessorRecords(state); }

  /// Discovers the processors of `design` and forgets the questions asked.
  void discover() {
    engine.GetProcessorList(&design);
    design.log.clear();
  }

  /// Adds a record as discovery would; `DesignFixture` releases it.
  ZelDebugDialog::ProcessorInfoImp &
  listRecord(const std::string &name, std::uint32_t family, std::uint32_t type,
             std::uint32_t mask, std::int8_t number) {
    auto *added = new ZelDebugDialog::ProcessorInfoImp;
    added->instanceName = name;
    added->procFamily = family;
    added->procType = type;
    added->connectionMask = mask;
    added->cpuNr = number;
    state.processorList.push_back(added);
    return *added;
  }

  FakeDesign design;
};

} // namespace support

#endif
