// The version that a program is built against and the one that it runs with.
#include <gtest/gtest.h>

#include <string>

#include "ZelDebugDialog/Version.h"

using namespace ZelDebugDialog;

TEST(Version, OfTheLibraryIsThatOfTheHeader) {
  EXPECT_STREQ(GetLibraryVersion(), ZELDEBUGDIALOG_VERSION_STRING);
}

TEST(Version, IsThatOfTheProject) {
  EXPECT_STREQ(ZELDEBUGDIALOG_VERSION_STRING, EXPECTED_VERSION);
}

TEST(Version, IsTheSameAsNumbersAndAsAText) {
  EXPECT_EQ(std::to_string(ZELDEBUGDIALOG_VERSION_MAJOR) + '.' +
                std::to_string(ZELDEBUGDIALOG_VERSION_MINOR) + '.' +
                std::to_string(ZELDEBUGDIALOG_VERSION_PATCH),
            ZELDEBUGDIALOG_VERSION_STRING);
  EXPECT_EQ(ZELDEBUGDIALOG_VERSION_NUMBER / 10000,
            ZELDEBUGDIALOG_VERSION_MAJOR);
  EXPECT_EQ(ZELDEBUGDIALOG_VERSION_NUMBER / 100 % 100,
            ZELDEBUGDIALOG_VERSION_MINOR);
  EXPECT_EQ(ZELDEBUGDIALOG_VERSION_NUMBER % 100, ZELDEBUGDIALOG_VERSION_PATCH);
}

// What the preprocessor can decide.
#if ZELDEBUGDIALOG_VERSION_NUMBER < 10000
#error "older than the first release"
#endif
