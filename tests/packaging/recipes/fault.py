# A warning: a serial stub whose answers nobody waits for.
commands = "configuration_model/src/commands"
ahead("configuration_model/src/codes/DiagnosticCodes.cpp", '{"value-cut", CodeSeverity::warning', """
      {"timeout-zero", CodeSeverity::warning, "waits for no answer",
       "A stub over a serial line is given no time to answer.",
       "connect lc stub -comm serial -baud 9600 -timeout 0", "",
       "Give a time in milliseconds, such as 20000."},
""")
words = f"{commands}/DiagnoseWords.cpp"
ahead(words, "void Examiner::examineWords() {", """
/// A serial line without a time-out.
void Examiner::examineTimeout(std::size_t word) {
  const ProcessorInfoImp &record = command.snapshot().record;
  const bool isSerialStub = record.connectionType == Engine::CONNECT_STUB &&
                            record.stubType != Engine::STUB_JTAG;
  if (isSerialStub && record.stubTimeout == 0 &&
      command.isLastFor("stubTimeout", word))
    add(word, "timeout-zero", "");
}

""")
behind(words, "  void examineBaud(std::size_t word);", "  void examineTimeout(std::size_t word);")
ahead(words, 'if (isValue && sets(word, "stubBaudRate"))', """
    if (isValue && sets(word, "stubTimeout"))
      examineTimeout(i);
""")

behind("tests/configuration_model/CheckCommandTest.cpp", '"35+1 warning baud-zero"},', """
      {"connect lc stub -comm serial -timeout 0", "38+1 warning timeout-zero"},
      {"connect lc stub -comm serial -timeout 1", ""},
      {"connect lc stub -comm jtag -timeout 0", ""},
""")
instead("tests/configuration_model/expected/codes.txt", "\nvalue-cut\n", """
timeout-zero
  severity: warning
  summary: waits for no answer
  meaning: A stub over a serial line is given no time to answer.
  example: "connect lc stub -comm serial -baud 9600 -timeout 0"
  advice: Give a time in milliseconds, such as 20000.
value-cut
""")
