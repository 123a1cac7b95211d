// Fields by comma or line end, in files of every kind of line end and encoding.
#include "core/field_reader.h"

#include "gtest/gtest.h"

#include "core/runtime_failure.h"

namespace tess {
namespace {

FieldReader reader(std::string content) {
  return FieldReader("part.cdm", std::move(content));
}

TEST(FieldReader, TakesTheNextFieldWhereverItStands) {
  FieldReader fields = reader("1,2\r\n3\n  text, 4.5 \r.25");
  EXPECT_EQ(fields.readInteger(), 1);
  EXPECT_EQ(fields.readInt16(), 2);
  EXPECT_EQ(fields.readInteger(), 3);
  EXPECT_EQ(fields.readText(), "text");
  EXPECT_EQ(fields.readFloat(), 4.5F);
  EXPECT_EQ(fields.line(), 4);
  EXPECT_EQ(fields.readFloat(), 0.25F);
  EXPECT_TRUE(fields.atEnd());
}

TEST(FieldReader, EmptyAndNonNumericFieldsReadAsZero) {
  FieldReader fields = reader(",\r\nabc,-1e1");
  EXPECT_EQ(fields.readInteger(), 0);
  EXPECT_EQ(fields.readText(), "");
  EXPECT_EQ(fields.readFloat(), 0.0F);
  EXPECT_EQ(fields.readFloat(), -10.0F);
}

TEST(FieldReader, EndOfFileNamesLineAndField) {
  FieldReader fields = reader("1,2\n3");
  for (int count = 0; count < 3; ++count) fields.readInteger();
  try {
    fields.readInteger();
    FAIL() << "nothing was raised";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), FailureNumber::InputPastEnd);
    EXPECT_STREQ(failure.what(), "Input past end of file");
    EXPECT_EQ(failure.source(), "part.cdm line 2 field 1");
  }
}

TEST(FieldReader, NumberThatDoesNotFitNamesItsPlace) {
  FieldReader fields = reader("7,40000");
  fields.readInt16();
  try {
    fields.readInt16();
    FAIL() << "nothing was raised";
  } catch (const RuntimeFailure& failure) {
    EXPECT_EQ(failure.number(), FailureNumber::Overflow);
    EXPECT_EQ(failure.source(), "part.cdm line 1 field 2");
  }
}

TEST(FieldReader, BytesThatAreNoUtf8ReadAsLatinOne) {
  FieldReader fields = reader("Fr\xE4ser,Fr\xC3\xA4ser");
  EXPECT_EQ(fields.readText(), "Fräser");
  EXPECT_EQ(fields.readText(), "Fräser");
}

TEST(FieldReader, QuotesMatterOnlyToTheQuotedReading) {
  FieldReader plain = reader("\"a,b\"");
  EXPECT_EQ(plain.readText(), "\"a");
  FieldReader quoted = reader(" \"a,b\" rest,c,\"open");
  EXPECT_EQ(quoted.readQuotedText(), "a,b");
  EXPECT_EQ(quoted.readQuotedText(), "c");
  EXPECT_EQ(quoted.readQuotedText(), "open");
  EXPECT_TRUE(quoted.atEnd());
}

TEST(FieldReader, LineKeepsCommasAndBlanks) {
  FieldReader fields = reader("1, a,b \r\n\n c=d");
  EXPECT_EQ(fields.readInteger(), 1);
  EXPECT_EQ(fields.readLine(), " a,b ");
  EXPECT_EQ(fields.readLine(), "");
  EXPECT_EQ(fields.readLine(), " c=d");
  EXPECT_TRUE(fields.atEnd());
  EXPECT_THROW(fields.readLine(), RuntimeFailure);
}

TEST(FieldReader, PlaceIsThatOfTheFieldToBeReadNext) {
  FieldReader fields = reader("1,2\n3");
  EXPECT_EQ(fields.place(), "part.cdm line 1 field 1");
  fields.readInteger();
  EXPECT_EQ(fields.place(), "part.cdm line 1 field 2");
  fields.readInteger();
  EXPECT_EQ(fields.place(), "part.cdm line 2 field 1");
}

// Numbers are parsed where they stand; whatever is no plain number goes to the lenient parsers.
TEST(FieldReader, OddNumbersReadAsTheLenientParsersReadThem) {
  FieldReader floats = reader("+2.5, 1 ,2x,-,-.,.,1e,1e2,-.5e1,inf,-inf,nan,-0,1.5.2,0x10");
  for (const float expected : {2.5F, 1.0F, 2.0F, 0.0F, 0.0F, 0.0F, 1.0F, 100.0F, -5.0F, 0.0F, 0.0F,
                               0.0F, 0.0F, 1.5F, 0.0F}) {
    EXPECT_EQ(floats.readFloat(), expected) << floats.place();
  }
  FieldReader integers = reader("+2,2.5,3.5,-2.5,1e2, 7 ,8x,.9,-,--1,00012");
  for (const int expected : {2, 2, 4, -2, 100, 7, 8, 1, 0, 0, 12}) {
    EXPECT_EQ(integers.readInteger(), expected) << integers.place();
  }
  EXPECT_TRUE(floats.atEnd());
  EXPECT_TRUE(integers.atEnd());
}

TEST(FieldReader, PrintableLineKeepsBlankToLowerZ) {
  FieldReader fields = reader("6061, {T6}\t|~\xE9\r\n5");
  EXPECT_EQ(fields.readPrintable(), "6061, T6");
  EXPECT_EQ(fields.readInteger(), 5);
}

}  // namespace
}  // namespace tess
