# An option of the processor targets that takes no value and sets nothing.
dispatcher = "debug_dialog/src/KvoOption_Parser/OptionDispatcher.cpp"
instead(dispatcher, "13> clauses{{", "14> clauses{{")
behind(dispatcher, '{"-writeonly", readFlag', '    {"-nohalt", readFlag, NextWord::readByDispatcher, describeFlag},')

instead("tests/trace/CommandTraceTest.cpp", '"-writeonly",\n', '"-writeonly", "-nohalt",\n')

instead("docs/zeldebug.md", "'-writeonly', '-cable',", "'-writeonly', '-nohalt', '-cable',")
