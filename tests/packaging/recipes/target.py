# Another kind of ARM processor.
instead("debug_dialog/include/ZelDebugDialog/ProcessorInfo.h", "whose model is not known. \"proctype\".",
        "whose model is not known, 7 Cortex-M3. \"proctype\".")

facts = "debug_dialog/include/ZelDebugDialog/EngineFacts.h"
behind(facts, "typePpcUnknown = 6;", """
/// `procType` of a Cortex-M3.
inline constexpr std::uint32_t typeCortexM3 = 7;
""")
instead(facts, "std::array<ProcessorType, 6> processorTypes", "std::array<ProcessorType, 7> processorTypes")
behind(facts, '{typeCortexR5, familyArm, "Cortex-R5"},', '     {typeCortexM3, familyArm, "Cortex-M3"},')

parser = "debug_dialog/src/KvoOption_Parser"
instead(f"{parser}/ConnectCommand.cpp", "8> targets{{", "9> targets{{")
behind(f"{parser}/ConnectCommand.cpp", '{"r5", readArmR5,', '    {"m3", readArmM3, true, describeArm},')
targets = f"{parser}/ProcessorTargets.cpp"
ahead(targets, "constexpr Identity cortexR5{", """
constexpr Identity cortexM3{familyArm, typeCortexM3,
                            IdentityComes::afterOptions};
""")
ahead(targets, "/// Any design or none: the mask is replaced", """
int readArmM3(WordCursor &cursor, EngineImp &imp) {
  return readTarget(cursor, imp, armConnections, cortexM3);
}

""")
behind(f"{parser}/Readers.h", "int readArmR5(", "int readArmM3(WordCursor &cursor, EngineImp &imp);")

instead("tests/engine/EngineFactsTest.cpp", '{6, {1, "PowerPC"}}', '{6, {1, "PowerPC"}}, {7, {2, "Cortex-M3"}}')
ahead("tests/language/CommandReaderTest.cpp", '{"r5", "hw",', """
    {"m3", "hw",
     "connectionType=2 connectionMask=4098 procFamily=2 procType=7"},
""")
words = "tests/support/Targets.h"
instead(words, 'targetsInFiles{"lc", "ppc", "arm", "r5"}', 'targetsInFiles{"lc", "ppc", "arm", "r5", "m3"}')
instead(words, '"r5",\n', '"r5", "m3",\n')
tables = "tests/trace/CommandTablesTest.cpp"
instead(tables, "EXPECT_EQ(ways, 2 * 11 + 2);", "EXPECT_EQ(ways, 2 * 12 + 2);")
instead(tables, "2 * (6 * 36", "2 * (7 * 36")
