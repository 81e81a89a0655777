#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "rib/lexanrib.h"
#include "tests/rib/lexanrib_test_support.h"

using namespace lexantest;

namespace {

// The report lines `report` makes after `scanned` tokens of `input` are read.
template <class F>
Words reportAfter(const std::string& input, int scanned, F report) {
  Reports reports;
  Scan scan(input);
  for (int i = 0; i < scanned; ++i) EXPECT_NE(scan.lex.next(), LEXEOF);
  report(scan.lex);
  return reports.lines();
}

TEST(LexanribReport, LineFormat) {
  // A report names the line where the scan began: just after Sphere.
  EXPECT_EQ(reportAfter(std::string(11, '\n') + "Sphere 1.5x", 1,
                        [](lexanrib& lex) {
                          std::string e = raised(lex);
                          EXPECT_EQ(e, "16 2 Invalid number");
                          lex.RIBError(16, 2, "%s", e.substr(5).c_str());
                        }),
            (Words{"RIB error: general syntactic error at line 12 '1.5x': Invalid number"}));
  // Without a format there is no colon.
  EXPECT_EQ(
      reportAfter("\n\nWorldBegin Bogus", 2, [](lexanrib& lex) { lex.RIBError(17, 2, nullptr); }),
      (Words{"RIB error: undefined RIB request at line 3 'Bogus'"}));
  // Before any scan the quoted text is empty.
  EXPECT_EQ(reportAfter("", 0, [](lexanrib& lex) { lex.RIBError(16, 2, "Expected Keyword"); }),
            (Words{"RIB error: general syntactic error at line 1 '': Expected Keyword"}));
  EXPECT_EQ(reportAfter("version", 1,
                        [](lexanrib& lex) { lex.RIBError(11, 1, "Version %4.2f too new", 3.1); }),
            (Words{"RIB warning: protocol version number mismatch at line 1 'version': Version "
                   "3.10 too new"}));
  // Text holding a NUL is quoted up to it.
  EXPECT_EQ(reportAfter(std::string("\x93"
                                    "a\0b",
                                    4),
                        1, [](lexanrib& lex) { lex.RIBError(16, 2, nullptr); }),
            (Words{"RIB error: general syntactic error at line 1 'a'"}));
  // Each severity has its word; those outside the four are errors.
  const std::string rest = "protocol version number mismatch at line 1 '': v";
  EXPECT_EQ(reportAfter("", 0,
                        [](lexanrib& lex) {
                          for (int32_t severity : {0, 1, 2, 3, 7, -1}) {
                            lex.RIBError(11, severity, "v");
                          }
                        }),
            (Words{"RIB info: " + rest, "RIB warning: " + rest, "RIB error: " + rest,
                   "severe RIB error: " + rest, "RIB error: " + rest, "RIB error: " + rest}));
  // Codes outside the table have no text.
  EXPECT_EQ(reportAfter("", 0,
                        [](lexanrib& lex) {
                          for (int32_t code : {0, 18, -1}) lex.RIBError(code, 2, "m");
                        }),
            Words(3, "RIB error:  at line 1 '': m"));
}

TEST(LexanribReport, TextUpTo28BytesIsQuoted) {
  std::string w28(28, 'a'), w29(29, 'b');
  Reports reports;
  Scan scan(w28 + " " + w29 + " " + std::string(60000, 'c'));
  for (int i = 0; i < 3; ++i) {
    ASSERT_EQ(scan.lex.next(), LEXKEYWORD);
    scan.lex.RIBError(16, 2, "m");
  }
  EXPECT_EQ(reports.lines(), (Words{"RIB error: general syntactic error at line 1 '" + w28 + "': m",
                                    "RIB error: general syntactic error at line 1: m",
                                    "RIB error: general syntactic error at line 1: m"}));
}

TEST(LexanribReport, LongNameInMessageIsCutNotOverrun) {
  std::string name(5000, 'P');
  std::string message = "4 items expected for parameter '" + name + "'";
  EXPECT_EQ(
      reportAfter("", 0,
                  [&](lexanrib& lex) {
                    lex.RIBError(2, 2, "%ld items expected for parameter '%s'", 4L, name.c_str());
                  }),
      (Words{"RIB error: incorrect parameter value at line 1 '': " + message.substr(0, 123)}));
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
  EXPECT_EQ(raised(lex), "0 3 ");
  EXPECT_EQ(reports.lines(),
            (Words{"severe RIB error: insufficient memory to read string at line 1 "
                   "'abc': Free store exhausted"}));
}

TEST(LexanribReport, MemoryFailureElsewherePassesOn) {
  Reports reports;
  ThrowingSource source("Sphe");
  lexanrib lex(source);
  EXPECT_EQ(raised(lex), "13 3 Free store exhausted");
  EXPECT_TRUE(reports.lines().empty());
}

}  // namespace
