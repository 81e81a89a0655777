#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "rib/lexanrib.h"
#include "tests/rib/lexanrib_test_support.h"

using lexantest::Reports;
using lexantest::Scan;
using Words = std::vector<std::string>;

namespace {

// Leaves the scanner's text holding word, as the last scanned keyword.
void scanWord(lexanrib& lex) {
  ASSERT_EQ(lex.next(), LEXKEYWORD);
}

TEST(LexanribReport, InvalidNumberLine) {
  Reports reports;
  // A report names the line where the scan began: just after Sphere.
  Scan scan(std::string(11, '\n') + "Sphere 1.5x");
  scanWord(scan.lex);
  try {
    scan.lex.next();
    FAIL() << "no exception";
  } catch (const RIBException& e) {
    scan.lex.RIBError(e.code, e.severity, "%s", e.message.c_str());
  }
  EXPECT_EQ(reports.lines(),
            (Words{"RIB error: general syntactic error at line 12 '1.5x': Invalid number"}));
}

TEST(LexanribReport, WithoutFormatNoColon) {
  Reports reports;
  Scan scan("\n\nWorldBegin Bogus");
  scanWord(scan.lex);
  scanWord(scan.lex);
  scan.lex.RIBError(17, 2, nullptr);
  EXPECT_EQ(reports.lines(), (Words{"RIB error: undefined RIB request at line 3 'Bogus'"}));
}

TEST(LexanribReport, BeforeAnyScanQuotesEmptyText) {
  Reports reports;
  Scan scan("");
  scan.lex.RIBError(16, 2, "Expected Keyword");
  EXPECT_EQ(reports.lines(),
            (Words{"RIB error: general syntactic error at line 1 '': Expected Keyword"}));
}

TEST(LexanribReport, SeverityWords) {
  Reports reports;
  Scan scan("");
  for (int32_t severity : {0, 1, 2, 3, 7, -1}) scan.lex.RIBError(11, severity, "v");
  const std::string rest = "protocol version number mismatch at line 1 '': v";
  EXPECT_EQ(reports.lines(),
            (Words{"RIB info: " + rest, "RIB warning: " + rest, "RIB error: " + rest,
                   "severe RIB error: " + rest, "RIB error: " + rest, "RIB error: " + rest}));
}

TEST(LexanribReport, CodesOutsideTheTableHaveNoText) {
  Reports reports;
  Scan scan("");
  for (int32_t code : {0, 18, -1}) scan.lex.RIBError(code, 2, "m");
  EXPECT_EQ(reports.lines(), Words(3, "RIB error:  at line 1 '': m"));
}

TEST(LexanribReport, VersionWarning) {
  Reports reports;
  Scan scan("version");
  scanWord(scan.lex);
  scan.lex.RIBError(11, 1, "Version %4.2f too new", 3.1);
  EXPECT_EQ(
      reports.lines(),
      (Words{"RIB warning: protocol version number mismatch at line 1 'version': Version 3.10 "
             "too new"}));
}

TEST(LexanribReport, TextUpTo28BytesIsQuoted) {
  Reports reports;
  std::string w28(28, 'a'), w29(29, 'b');
  Scan scan(w28 + " " + w29 + " " + std::string(60000, 'c'));
  for (int i = 0; i < 3; ++i) {
    scanWord(scan.lex);
    scan.lex.RIBError(16, 2, "m");
  }
  EXPECT_EQ(reports.lines(), (Words{"RIB error: general syntactic error at line 1 '" + w28 + "': m",
                                    "RIB error: general syntactic error at line 1: m",
                                    "RIB error: general syntactic error at line 1: m"}));
}

TEST(LexanribReport, LongNameInMessageIsCutNotOverrun) {
  Reports reports;
  std::string name(5000, 'P');
  Scan scan("");
  scan.lex.RIBError(2, 2, "%ld items expected for parameter '%s'", 4L, name.c_str());
  std::string message = "4 items expected for parameter '" + name + "'";
  EXPECT_EQ(reports.lines(), (Words{"RIB error: incorrect parameter value at line 1 '': " +
                                    message.substr(0, 123)}));
}

TEST(LexanribReport, TextWithNulIsQuotedUpToIt) {
  Reports reports;
  Scan scan(
      std::string("\x93"
                  "a\0b",
                  4));
  ASSERT_EQ(scan.lex.next(), LEXSTRING);
  scan.lex.RIBError(16, 2, nullptr);
  EXPECT_EQ(reports.lines(), (Words{"RIB error: general syntactic error at line 1 'a'"}));
}

TEST(LexanribReport, IgnoreHandlerShowsNothing) {
  Reports reports;
  Scan scan("");
  scan.lex.RIBErrorHandler = &lexanrib::RIBErrorIgnore;
  scan.lex.RIBError(16, 3, "gone");
  EXPECT_TRUE(reports.lines().empty());
}

TEST(LexanribReportDeathTest, AbortHandlerPrintsThenStopsEvenOnInformation) {
  Scan scan("");
  scan.lex.RIBErrorHandler = &lexanrib::RIBErrorAbort;
  EXPECT_DEATH(scan.lex.RIBError(16, 0, "stop"),
               "RIB info: general syntactic error at line 1 '': stop");
}

TEST(LexanribReport, ExceptionRecordCarriesFormattedText) {
  RIBException e = lexanrib::exception(16, 2, "bad %s %d", "thing", 3);
  EXPECT_EQ(e.code, 16);
  EXPECT_EQ(e.severity, 2);
  EXPECT_STREQ(e.message.c_str(), "bad thing 3");
  RIBException empty = lexanrib::exception(0, 2, nullptr);
  EXPECT_STREQ(empty.message.c_str(), "");
}

// A source whose next block read throws as the allocator's failure handler
// does while parsing, so a memory failure can strike inside a scan.
class ThrowingSource : public bytesource {
 public:
  explicit ThrowingSource(std::string first) : first_(std::move(first)) {}

 protected:
  size_t read(unsigned char* dst, size_t cap) override {
    if (served_) throw lexanrib::exception(13, 3, "Free store exhausted");
    served_ = true;
    size_t n = first_.size() < cap ? first_.size() : cap;
    std::memcpy(dst, first_.data(), n);
    return n;
  }

 private:
  std::string first_;
  bool served_ = false;
};

TEST(LexanribReport, MemoryFailureInStringIsToldAsCode15) {
  Reports reports;
  ThrowingSource source("Sphere \"abc");
  lexanrib lex(source);
  ASSERT_EQ(lex.next(), LEXKEYWORD);
  try {
    lex.next();
    FAIL() << "no exception";
  } catch (const RIBException& e) {
    EXPECT_EQ(e.code, 0);
    EXPECT_STREQ(e.message.c_str(), "");
  }
  EXPECT_EQ(reports.lines(),
            (Words{"severe RIB error: insufficient memory to read string at line 1 "
                   "'abc': Free store exhausted"}));
}

TEST(LexanribReport, MemoryFailureElsewherePassesOn) {
  Reports reports;
  ThrowingSource source("Sphe");
  lexanrib lex(source);
  try {
    lex.next();
    FAIL() << "no exception";
  } catch (const RIBException& e) {
    EXPECT_EQ(e.code, 13);
    EXPECT_EQ(e.severity, 3);
    EXPECT_STREQ(e.message.c_str(), "Free store exhausted");
  }
  EXPECT_TRUE(reports.lines().empty());
}

}  // namespace
