// SPDX-License-Identifier: GPL-3.0-or-later
#include "number_format.h"

#include <gmock/gmock.h>

namespace orb {
namespace {

constexpr WholeRange bytes = rangeOf<unsigned char>();
constexpr WholeRange shorts = rangeOf<short>();

std::int64_t numberIn(const NumberFormat& format, const std::string& text, WholeRange field = shorts)
{
    return format.read({text, 3, 2}, field);
}

template <class Function> std::string errorOf(Function function)
{
    try {
        function();
    } catch (const CsvError& error) {
        return error.what();
    }
    return "no error";
}

std::string errorIn(const NumberFormat& format, const std::string& text, WholeRange field = shorts)
{
    return errorOf([&] { numberIn(format, text, field); });
}

TEST(NumberFormatTest, AWordStandsForItsNumberInAnyLetterCase)
{
    const NumberFormat format = NumberFormat::words({"Low", "High"}, 5);
    EXPECT_EQ(format.text(5), "Low");
    EXPECT_EQ(format.text(6), "High");
    EXPECT_EQ(numberIn(format, "hIGH"), 6);
    EXPECT_EQ(errorIn(format, "middle"), "line 3, column 2: \"middle\" is none of Low, High");
    EXPECT_EQ(errorIn(format, ""), "line 3, column 2: \"\" is none of Low, High");
}

TEST(NumberFormatTest, ANumberWithoutAWordIsRaw)
{
    const NumberFormat format = NumberFormat::words({"Low", "High"}, 5);
    for (const auto& [number, text] : {std::pair{4, "raw 4"}, {7, "raw 7"}, {-32768, "raw -32768"}}) {
        EXPECT_EQ(format.text(number), text);
        EXPECT_EQ(numberIn(format, text), number);
    }
    EXPECT_EQ(numberIn(format, "RAW 6"), 6) << "also where there is a word";
}

TEST(NumberFormatTest, ARawNumberMustFitItsField)
{
    const NumberFormat format = NumberFormat::words({"Low"});
    EXPECT_EQ(numberIn(format, "raw 255", bytes), 255);
    for (const char* text : {"raw 256", "raw -1", "raw x", "raw 1.5", "raw 5 ", "raw 99999999999999999999"})
        EXPECT_EQ(errorIn(format, text, bytes),
                  std::string("line 3, column 2: ") + text + " is no number from raw 0 to raw 255");
}

TEST(NumberFormatTest, AWholeNumberIsShownWithItsOffset)
{
    const NumberFormat format = NumberFormat::whole({0, 119}, 1);
    EXPECT_EQ(format.text(0), "1");
    EXPECT_EQ(format.text(119), "120");
    EXPECT_EQ(format.text(120), "raw 120");
    EXPECT_EQ(format.text(-1), "raw -1");
    EXPECT_EQ(numberIn(format, "120"), 119);
    EXPECT_EQ(numberIn(format, "1.0"), 0) << "as a spreadsheet may write it";
    for (const char* text : {"0", "121", "1.5", "x", "1x", "", "nan", "1e99", "1e999", "-1"})
        EXPECT_EQ(errorIn(format, text),
                  std::string("line 3, column 2: \"") + text + "\" is no whole number from 1 to 120");
}

TEST(NumberFormatTest, ANumberOfStepsIsShownExactly)
{
    const NumberFormat format = NumberFormat::steps({0, 32767}, 0.0064);
    EXPECT_EQ(format.text(250), "1.6");
    EXPECT_EQ(format.text(251), "1.6064");
    EXPECT_EQ(format.text(0), "0");
    EXPECT_EQ(format.text(1), "0.0064");
    EXPECT_EQ(format.text(-1), "raw -1");
    EXPECT_EQ(NumberFormat::steps({0, 2147483647}, 0.000001).text(2147483647), "2147.483647");
    EXPECT_EQ(NumberFormat::steps({0, 2147483647}, 1).text(2147483647), "2147483647");
}

TEST(NumberFormatTest, ADecimalNumberIsRoundedToTheNearestStep)
{
    const NumberFormat format = NumberFormat::steps({0, 32767}, 0.01);
    EXPECT_EQ(numberIn(format, "15"), 1500);
    EXPECT_EQ(numberIn(format, "0.014"), 1);
    EXPECT_EQ(numberIn(format, "0.016"), 2);
    EXPECT_EQ(numberIn(format, "1E-02"), 1);
    EXPECT_EQ(numberIn(format, "327.674"), 32767);
    for (const char* text : {"327.68", "-0.01", "1,5", "inf", "0x10", "."})
        EXPECT_EQ(errorIn(format, text),
                  std::string("line 3, column 2: \"") + text + "\" is no number from 0 to 327.67");
}

TEST(NumberFormatTest, EveryNumberOfStepsIsReadBack)
{
    // Steps in single precision too, as the scales have them.
    for (const double step : {0.0002, 0.00016, 0.0064, static_cast<double>(0.01F), static_cast<double>(0.0002F), 0.1}) {
        const NumberFormat format = NumberFormat::steps({0, 32767}, step);
        for (int number = -32768; number <= 32767; ++number)
            ASSERT_EQ(numberIn(format, format.text(number)), number) << step;
    }
    for (const double step : {0.000001, 0.00001, 0.0001, 0.001, 0.01, 0.1, 1.0}) {
        const NumberFormat format = NumberFormat::steps({0, 2147483647}, step);
        for (std::int64_t number = 2147483647; number > 0; number -= 21474839)
            ASSERT_EQ(numberIn(format, format.text(number), rangeOf<int>()), number) << step;
    }
}

TEST(NumberFormatTest, AFormatOfNoTextTakesRawNumbersAlone)
{
    const NumberFormat format = NumberFormat::rawOnly("no steps");
    EXPECT_EQ(format.text(0), "raw 0");
    EXPECT_EQ(numberIn(format, "raw 7"), 7);
    EXPECT_EQ(errorIn(format, "7"), "line 3, column 2: \"7\" is not raw: no steps");
    EXPECT_EQ(errorIn(format, "0"), "line 3, column 2: \"0\" is not raw: no steps");
}

TEST(CharactersTextTest, CharactersStandBetweenApostrophes)
{
    EXPECT_EQ(charactersText("1.00"), "'1.00'");
    EXPECT_EQ(charactersText(" a~ "), "' a~ '");
    EXPECT_EQ(readCharacters({"'1.00'", 1, 1}, 4), "1.00");
    EXPECT_EQ(readCharacters({"1.00", 1, 1}, 4), "1.00");
    EXPECT_EQ(readCharacters({"'a'", 1, 1}, 1), "a");
}

TEST(CharactersTextTest, CharactersThatACellCanNotShowAreRaw)
{
    using namespace std::string_literals;
    for (const std::string& characters : {"a\0b"s, "a,b"s, "a'b"s, "a\"b"s, "\x7f\xff\n"s})
        EXPECT_EQ(readCharacters({charactersText(characters), 1, 1}, 3), characters);
    EXPECT_EQ(charactersText("a\x1f\xff"), "raw 61 1f ff");
    EXPECT_EQ(charactersText("a\x7f"), "raw 61 7f");
}

TEST(CharactersTextTest, AnotherCountOfCharactersIsAnError)
{
    for (const char* text : {"'1.0'", "1.0", "", "'1.000'", "raw 31 32 33"})
        EXPECT_EQ(errorOf([&] {
                      readCharacters({text, 4, 2}, 4);
                  }),
                  std::string("line 4, column 2: \"") + text + "\" is not 4 characters");
}

TEST(CharactersTextTest, RawBytesHaveTwoDigitsEach)
{
    EXPECT_EQ(readRawBytes({"raw 0a FF", 1, 1}), "\x0a\xff");
    for (const char* text : {"raw", "raw ", "raw a", "raw 0a0", "raw 0g", "raw 0a  0b", "0a", "raw 0a,"})
        EXPECT_EQ(errorOf([&] {
                      readRawBytes({text, 1, 1});
                  }),
                  std::string("line 1, column 1: \"") + text +
                      "\" is not the word raw and bytes of two hexadecimal digits");
}

} // namespace
} // namespace orb
