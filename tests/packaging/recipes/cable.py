# A network pod: written with port and frequency, as the other cables of its
# maker.
behind("debug_dialog/include/ZelDebugDialog/Engine.h", "QUORLA_TCF = 7,", "    QUORLA_NETPOD = 8,")

catalogue = "debug_dialog/src/facts/CableCatalogue"
ahead(f"{catalogue}.cpp", "constexpr std::array<std::uint32_t, 17> tcf{",
      "constexpr std::array<std::uint32_t, 2> netpod{10000000, 30000000};")
instead(f"{catalogue}.cpp", "std::array<Cable, 7> catalogue", "std::array<Cable, 8> catalogue")
behind(f"{catalogue}.cpp", '"20000000, 24000000, 30000000"},', """
    {Engine::QUORLA_NETPOD, "quorla_netpod", "", CableClauseForm::line,
     10000000, "pod:7000", all(netpod), all(netpod),
     "UnSupported Quorla NetPod Cable Frequency - %d\\nSupported Frequencies: "
     "10000000, 30000000"},
""")
instead(f"{catalogue}.cpp", "NamedValue, 7> cableKeywords = collectKeywords<7>()",
        "NamedValue, 8> cableKeywords = collectKeywords<8>()")
instead(f"{catalogue}.h", "NamedValue, 7> cableKeywords", "NamedValue, 8> cableKeywords")

behind("tests/support/Cables.cpp", "static_assert(Engine::QUORLA_TCF == 7);",
       "static_assert(Engine::QUORLA_NETPOD == 8);")
behind("tests/support/Cables.cpp", '"12000000, 15000000, 20000000, 24000000, 30000000"},', """
    {8, {"quorla_netpod"}, "quorla_netpod",
     CableForm::line, 10000000, "pod:7000",
     {10000000, 30000000},
     {10000000, 30000000},
     "UnSupported Quorla NetPod Cable Frequency - ",
     "\\nSupported Frequencies: 10000000, 30000000"},
""")

instead("docs/zeldebug.md", "'digilent_plugin', 'quorla_tcf'\n", "'digilent_plugin', 'quorla_tcf', 'quorla_netpod'\n")
