# USER3 and USER4, told so far as one of the settings that no command holds.
instead("configuration_model/src/losses/Reasons.cpp",
        '{OmissionReason::registerWithoutWord, {"never-written", "only USER1 and USER2 can be written"}}',
        '{OmissionReason::registerWithoutWord, {"register-without-word"}}')
ahead("configuration_model/src/codes/LossCodes.cpp", '{"long-file", CodeSeverity::loss,', """
      {"register-without-word", CodeSeverity::loss,
       "only USER1 and USER2 can be written",
       "A command is written with the boundary-scan register USER1, and USER2 "
       "is what a record starts with.",
       "connect lc hdu -bscan USER3", "",
       "Give the register in a command of your own each time."},
""")
page = "docs/round-trip.md"
instead(page, """
and `nppc` of a chain device, the boundary scan registers USER3 and USER4, the
memory size of the simulator,""", """
and `nppc` of a chain device, the memory size of the simulator,""")
instead(page, " USER2 is what a record starts with.\n", "\n")
ahead(page, "## It is written, but the file is cut", """
<a id="register-without-word"></a>
### Boundary scan registers

USER1 is written, and USER2 is what a record starts with; USER3 and USER4 are
read only.

*Instead:* give them in a command (`ParseProcessorInfo`) each time.

""")

instead("tests/configuration_model/CodesTest.cpp", "EXPECT_EQ(codes.size(), 32U);", "EXPECT_EQ(codes.size(), 33U);")
instead("tests/configuration_model/LossTest.cpp", "bscanUserReg: USER3 -> USER2 [never-written]",
        "bscanUserReg: USER3 -> USER2 [register-without-word]")
instead("tests/zeldebug/SurvivalTest.cpp", '"written [never-written]"', '"written [register-without-word]"')
losses = "tests/support/RoundTrip.h"
behind(losses, "  NeverWritten,", "  RegisterWithoutWord,")
behind(losses, '"never-written",', '    "register-without-word",')
instead(losses, "std::array<const char *, 29> kLossIds", "std::array<const char *, 30> kLossIds")
instead("tests/support/RoundTripPrediction.cpp", """? Loss::OtherConnections
                                  : Loss::NeverWritten);""", """? Loss::OtherConnections
                                  : Loss::RegisterWithoutWord);""")
expected = "tests/configuration_model/expected"
instead(f"{expected}/codes.txt", "\nlong-file\n", """
register-without-word
  severity: loss
  summary: only USER1 and USER2 can be written
  meaning: A command is written with the boundary-scan register USER1, and USER2 is what a record starts with.
  example: "connect lc hdu -bscan USER3"
  advice: Give the register in a command of your own each time.
long-file
""")
instead(f"{expected}/reasons.txt", "never-written\n  text: only USER1", "register-without-word\n  text: only USER1")
