// A word that is a lone "-", in every place of every clause: the standard
// library's out-of-range error reaches whoever asked, and the engine goes on.
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace LanguageTest;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;

struct Sentence {
  Reader reader;
  std::string text; ///< Read to its last word.
  int code;
};

Reader reader(unsigned (*parse)(std::string &, EngineImp &)) {
  return [parse](std::string &text, EngineImp &imp) {
    return static_cast<int>(parse(text, imp));
  };
}

const std::string kClauses =
    "-debugdevice devicenr 1 cpunr 2 proctype ppc405 romemStartAdr 1 romemSize "
    "2 icacheStartAdr 0 dcacheStartAdr 0 itagStartAdr 0 dtagStartAdr 0 "
    "isocmStartAdr 1 isocmSize 2 isocmDcrStartAdr 3 tlbStartAdr 0 dcrStartAdr "
    "0 cpu_version v hdu_version v nCpu 1 fpuType sp -pfsl port 1 type ms "
    "-quiet -noattach -writeonly -cable type quorla_plugin port p esn e url u "
    "frequency 5 fname f modulename m modulearg a -comm jtag -port p -baud 1 "
    "-timeout 1 -configdevice jtagport cpu devicenr 1 idcode 1 irlength 1 "
    "partname p isfpga 1 hardppc ppc405 nppc 1 -bscan USER1 -sim -ipcport h:1 "
    "-configdevice devicenr 1";
const std::string kJtagClauses =
    "-cable type quorla_podusb -configdevice jtagport cpu partname p -bscan "
    "USER1 -debugdevice devicenr 1";

const std::vector<Sentence> kSentences = {
    {KvoOption_Parser::parse_options, kClauses, 0},
    {KvoOption_Parser::parse_lcoptions, "hdu " + kClauses, 0},
    {KvoOption_Parser::parse_lcoptions, "stub " + kClauses, 0},
    {KvoOption_Parser::parse_lcoptions, "sim -memsize 5", 0},
    {KvoOption_Parser::parse_ppcoptions, "hw " + kClauses, 0},
    {KvoOption_Parser::parse_ppcoptions, "sim -icf f -ipcport h:1", 0},
    {KvoOption_Parser::parse_armoptions, "hw " + kClauses, 0},
    {KvoOption_Parser::parse_armr5options, "hw " + kClauses, 0},
    {KvoOption_Parser::parse_dapoptions, "hw " + kClauses, 0},
    {reader(KvoOption_Parser::parse_hduoptions), "-uart " + kJtagClauses, 0},
    {reader(KvoOption_Parser::parse_dccoptions),
     "-uart -cable port p -debugdevice devicenr 1", 0},
    {reader(KvoOption_Parser::parse_kmtcoptions),
     "-configdevice devicenr 1 -cable port p -debugdevice devicenr 1", 0},
    {reader(KvoOption_Parser::parse_vpoptions),
     "lc -config cycle_approximate -ipcport h:1", 0},
    {reader(KvoOption_Parser::parse_ppcsim_options),
     "-icf f -ipcport h:1 -debugdevice devicenr 1", 0},
    {reader(KvoOption_Parser::parse_modelsim_options),
     "-ipcport h:1 -configdevice devicenr 1", 3},
    {reader(KvoOption_Parser::parse_debugdevice), "devicenr 1 fpuType sp", 3},
    {reader(KvoOption_Parser::parse_lcfsloptions), "port 1 type m", 3},
    {reader(KvoOption_Parser::parse_hdubscan), "USER1", 0},
    {KvoOption_Parser::parse_cable, "port p esn e", 3},
    {KvoOption_Parser::parse_configdevice, "devicenr 1 jtagport cpu", 3},
    {KvoOption_Parser::ReadJtagCableOptions, kJtagClauses, 0},
};

std::vector<std::string> wordsOf(const std::string &text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;)
    words.push_back(word);
  return words;
}

std::string joined(const std::vector<std::string> &words, std::size_t first,
                   std::size_t last) {
  std::string text;
  for (std::size_t i = first; i < last; ++i)
    text += " " + words[i];
  return text;
}

/// Reads `text`, which must fail at its lone "-", on `bench`.
void expectFailure(Bench &bench, const Reader &reader, std::string &text) {
  SCOPED_TRACE("text: \"" + text + "\"");
  try {
    const int code = reader(text, bench.imp);
    ADD_FAILURE() << "read with " << code;
  } catch (const std::out_of_range &error) {
    EXPECT_EQ(error.what(), kLoneMinus);
  }
}

TEST(LoneMinus, ReachesTheCallerOfEachReader) {
  for (const Sentence &sentence : kSentences) {
    const std::vector<std::string> words = wordsOf(sentence.text);
    // parse_hdubscan and the memory size read no further than their word.
    const bool stops =
        sentence.text == "USER1" || sentence.text == "sim -memsize 5";
    const std::size_t places = words.size() + (stops ? 0 : 1);
    for (std::size_t place = 0; place < places; ++place) {
      Bench bench;
      const std::string rest = joined(words, place, words.size());
      std::string text = joined(words, 0, place) + " -" + rest;
      expectFailure(bench, sentence.reader, text);
      EXPECT_EQ(text, rest);
      // The next text is read as if nothing had happened.
      std::string whole = sentence.text;
      EXPECT_EQ(sentence.reader(whole, bench.imp), sentence.code);
      EXPECT_EQ(whole, "");
    }
  }
}

TEST(LoneMinus, ReachesTheCallerOfACommand) {
  const std::vector<std::string> commands = {
      "connect lc hdu " + kClauses,
      "kconnect ppc hw " + kClauses,
      "connect ppc sim -icf f -ipcport h:1",
      "connect arm hw -quiet",
      "connect r5 hw -quiet",
      "connect dap hw -quiet",
      "connect hdu -uart -bscan USER1",
      "connect dcc -uart",
      "connect kmtc -configdevice devicenr 1",
      "vpconnect lc -config cycle_approximate",
      "kvpconnect lc -ipcport h:1",
  };
  const Reader readCommand = [](std::string &text, EngineImp &imp) {
    return KvoOption_Parser::ReadKvoCommand(text, imp);
  };
  for (const std::string &command : commands) {
    const std::vector<std::string> words = wordsOf(command);
    for (std::size_t place = 0; place <= words.size(); ++place) {
      Bench bench;
      std::string text =
          joined(words, 0, place) + " -" + joined(words, place, words.size());
      expectFailure(bench, readCommand, text);
      EXPECT_EQ(bench.record.connectCommand, text);
      EXPECT_EQ(KvoOption_Parser::ReadKvoCommand(command, bench.imp), 0);
    }
  }
}

} // namespace
