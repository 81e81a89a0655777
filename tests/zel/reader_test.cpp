// The reader refuses what is not a whole ZEL version 1 file, naming the line.
#include "tests/zel/zelfixture.h"

namespace {

const std::string kHeader = "{\"format\":\"ZEL\",\"version\":1,\"generator\":\"rib2zel test\"}\n";

struct Broken {
  const char* name;
  std::string text;
  const char* message;
};

const Broken kBroken[] = {
    {"Empty", "", "ZEL line 1: no header: the file is empty"},
    {"OtherFormat", "{\"format\":\"OBJ\",\"version\":1,\"generator\":\"x\"}\n",
     "ZEL line 1: not a ZEL file"},
    {"LaterVersion", "{\"format\":\"ZEL\",\"version\":2,\"generator\":\"x\"}\n",
     "ZEL line 1: ZEL version 2 is not supported"},
    {"CutShort", kHeader + "{\"op\":\"FrameBegin\",\"args\":[]}\n{\"op\":\"Frame",
     "ZEL line 3: the last record has no line end: the file was cut short"},
    {"NoOp", kHeader + "{\"args\":[]}\n", "ZEL line 2: missing \"op\""},
    {"ArgsNotArray", kHeader + "{\"op\":\"Color\",\"args\":1}\n",
     "ZEL line 2: \"args\" is not an array"},
    {"UnknownMember", kHeader + "{\"op\":\"Color\",\"args\":[],\"colour\":1}\n",
     "ZEL line 2: unknown member \"colour\""},
    {"WideCharacter", kHeader + "{\"op\":\"ObjectName\",\"args\":[\"\\u0100\"]}\n",
     "ZEL line 2: text holds a character above U+00FF"},
    {"ParamWithoutCount",
     kHeader + "{\"op\":\"SphereV\",\"args\":[],\"params\":[{\"code\":1,\"name\":\"P\",\"type\":4,"
               "\"class\":3,\"values\":[]}]}\n",
     "ZEL line 2: missing \"count\""},
    {"SecondValue", kHeader + "{\"op\":\"Color\",\"args\":[]} {}\n",
     "ZEL line 2: more than one JSON value"},
    {"HugeInteger", kHeader + "{\"op\":\"Color\",\"args\":[[0.5,18446744073709551615]]}\n",
     "ZEL line 2: integer 18446744073709551615 is too large"},
    {"LeadingZero", kHeader + "{\"op\":\"Color\",\"args\":[[0.5,01]]}\n",
     "ZEL line 2: \"01\" is not a number"},
    {"UnknownMemberAfterABadValue",
     kHeader + "{\"op\":\"Color\",\"args\":[[0.5,01]],\"colour\":1}\n",
     "ZEL line 2: unknown member \"colour\""},
};

void PrintTo(const Broken& broken, std::ostream* out) {
  *out << broken.name;
}

class BrokenFile : public ::testing::TestWithParam<Broken> {};

TEST_P(BrokenFile, IsRefusedWithItsLine) {
  try {
    readZelString(GetParam().text);
    FAIL() << "read without complaint";
  } catch (const ZelReadError& error) {
    EXPECT_STREQ(error.what(), GetParam().message);
  }
}

INSTANTIATE_TEST_SUITE_P(Reader, BrokenFile, ::testing::ValuesIn(kBroken),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ZelReader, BadJsonNamesTheLine) {
  try {
    readZelString(kHeader + "{\"op\":\"Color\",\"args\":[1,]}\n");
    FAIL();
  } catch (const ZelReadError& error) {
    EXPECT_EQ(std::string(error.what()).rfind("ZEL line 2: ", 0), 0u) << error.what();
  }
}

TEST(ZelReader, ValuesRefuseTheWrongKind) {
  ZelFile file = readZelString(kHeader + "{\"op\":\"Comment\",\"args\":[\"text\",7]}\n");
  const ZelRecord& comment = file.records.at(0);
  EXPECT_THROW(comment.args[0].asInt(), ZelReadError);
  EXPECT_THROW(comment.args[0].asFloat(), ZelReadError);
  EXPECT_THROW(comment.args[1].items(), ZelReadError);
  EXPECT_EQ(comment.args[1].asFloat(), 7.0f);
  EXPECT_FALSE(comment.hasParams);
  EXPECT_FALSE(comment.handle.has_value());
  EXPECT_EQ(comment.line, 2u);
}

TEST(ZelReader, NumberArraysKeepTheirIntegers) {
  ZelFile file =
      readZelString(kHeader + "{\"op\":\"Comment\",\"args\":[[1,2.5,-3e0],[16777217,0.1]]}\n");
  const ZelValue& small = file.records.at(0).args.at(0);
  const ZelValue& large = file.records.at(0).args.at(1);
  EXPECT_EQ(small.asFloats(), (std::vector<float>{1, 2.5f, -3}));
  EXPECT_EQ(small.items().at(0).kind(), ZelValue::Kind::Integer);
  EXPECT_EQ(small.items().at(2).kind(), ZelValue::Kind::Float);
  EXPECT_THROW(small.asInts(), ZelReadError);
  EXPECT_EQ(large.items().at(0).asInt(), 16777217);
  EXPECT_EQ(large.asFloats().at(1), 0.1f);
}

TEST(ZelReader, LeavesTheValuesOfNamedParametersUnread) {
  // The second writes the parameter's members in another order than the writer does.
  for (std::string param : {"{\"code\":1,\"name\":\"N\",\"type\":4,\"class\":3,\"count\":3,"
                            "\"values\":[0,0,1]}",
                            "{\"values\":[0,0,1],\"count\":3,\"class\":3,\"type\":4,"
                            "\"name\":\"N\",\"code\":1}"}) {
    std::istringstream in(kHeader + "{\"params\":[" + param +
                          "],\"op\":\"PolygonV\",\"args\":[1]}\n");
    ZelReader reader(in);
    reader.leaveValuesUnread({"N"});
    ZelRecord r;
    ASSERT_TRUE(reader.next(r));
    EXPECT_EQ(r.op, "PolygonV");
    ASSERT_EQ(r.params.size(), 1u);
    EXPECT_EQ(r.params[0].name, "N");
    EXPECT_EQ(r.params[0].count, 3);
    EXPECT_TRUE(r.params[0].values.isNull());
  }
}

TEST(ZelReader, MissingFileIsTold) {
  EXPECT_THROW(readZelFile("/nonexistent-dir/none.zel"), ZelReadError);
}

}  // namespace
