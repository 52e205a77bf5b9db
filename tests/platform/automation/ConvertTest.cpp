#include "CountedObject.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr LCID kUsEnglish = 0x409;
using Text = std::basic_string<OLECHAR>;

VARIANT TextValue(const OLECHAR* text)
{
    VARIANT value = {};
    V_VT(&value) = VT_BSTR;
    V_BSTR(&value) = SysAllocString(text);
    return value;
}

VARIANT Real(double number)
{
    VARIANT value = {};
    V_VT(&value) = VT_R8;
    V_R8(&value) = number;
    return value;
}

VARIANT Whole(VARTYPE vt, LONGLONG number)
{
    VARIANT value = {};
    V_VT(&value) = vt;
    V_I8(&value) = number;
    return value;
}

std::string Narrow(BSTR text)
{
    std::string narrow;
    for (UINT i = 0; i < SysStringLen(text); ++i)
        narrow += static_cast<char>(text[i]);
    return narrow;
}

struct Row {
    const char* label;
    VARIANT from;
    VARTYPE vt;
    HRESULT result;
    const char* text; // the value as text, when the conversion succeeds
};

// The value as text in a form of the test's own.
std::string Show(const VARIANT& value)
{
    switch (V_VT(&value)) {
    case VT_I1:
        return std::to_string(static_cast<signed char>(V_I1(&value)));
    case VT_UI1:
        return std::to_string(V_UI1(&value));
    case VT_I2:
    case VT_BOOL:
        return std::to_string(V_I2(&value));
    case VT_UI2:
        return std::to_string(V_UI2(&value));
    case VT_I4:
    case VT_INT:
        return std::to_string(V_I4(&value));
    case VT_UI4:
        return std::to_string(V_UI4(&value));
    case VT_I8:
    case VT_CY:
        return std::to_string(V_I8(&value));
    case VT_UI8:
        return std::to_string(V_UI8(&value));
    case VT_R4:
        return std::to_string(V_R4(&value));
    case VT_R8:
    case VT_DATE:
        return std::to_string(V_R8(&value));
    case VT_BSTR:
        return Narrow(V_BSTR(&value));
    default:
        return "kind " + std::to_string(V_VT(&value));
    }
}

void ExpectConversion(Row row, USHORT flags = 0)
{
    SCOPED_TRACE(row.label);
    VARIANT to = {};
    EXPECT_EQ(VariantChangeTypeEx(&to, &row.from, kUsEnglish, flags, row.vt), row.result);
    if (SUCCEEDED(row.result)) {
        EXPECT_EQ(V_VT(&to), row.vt);
        EXPECT_EQ(Show(to), row.text);
    } else {
        EXPECT_EQ(V_VT(&to), VT_EMPTY);
    }
    VariantClear(&to);
    VariantClear(&row.from);
}

TEST(Convert, RoundsHalvesToEvenAndRefusesWhatDoesNotFit)
{
    const Row rows[] = {
        {"2.5", Real(2.5), VT_I4, S_OK, "2"},
        {"3.5", Real(3.5), VT_I4, S_OK, "4"},
        {"-2.5", Real(-2.5), VT_I4, S_OK, "-2"},
        {"just below a half", Real(2.4999999999999996), VT_I4, S_OK, "2"},
        {"just above a half", Real(2.5000000000000004), VT_I4, S_OK, "3"},
        {"largest", Real(2147483647.4), VT_I4, S_OK, "2147483647"},
        {"one too large", Real(2147483647.5), VT_I4, DISP_E_OVERFLOW, ""},
        {"smallest", Real(-2147483648.5), VT_I4, S_OK, "-2147483648"},
        {"one too small", Real(-2147483649), VT_I4, DISP_E_OVERFLOW, ""},
        {"short", Real(32767.5), VT_I2, DISP_E_OVERFLOW, ""},
        {"byte", Real(255.4), VT_UI1, S_OK, "255"},
        {"negative byte", Real(-1), VT_UI1, DISP_E_OVERFLOW, ""},
        {"almost negative", Real(-0.5), VT_UI1, S_OK, "0"},
        {"unsigned", Real(4294967295.0), VT_UI4, S_OK, "4294967295"},
        {"too large for all", Real(1e300), VT_I8, DISP_E_OVERFLOW, ""},
        {"to float", Real(1e39), VT_R4, DISP_E_OVERFLOW, ""},
        {"to amount", Real(1.23455), VT_CY, S_OK, "12346"},
        {"amount too large", Real(1e15), VT_CY, DISP_E_OVERFLOW, ""},
        {"to yes", Real(0.1), VT_BOOL, S_OK, "-1"},
        {"to no", Real(0), VT_BOOL, S_OK, "0"},
        {"to date", Real(2958466), VT_DATE, DISP_E_OVERFLOW, ""},
    };
    for (const Row& row : rows)
        ExpectConversion(row);
}

TEST(Convert, WholeNumbersKeepTheirValueOrAreRefused)
{
    const Row rows[] = {
        {"down", Whole(VT_I4, 127), VT_I1, S_OK, "127"},
        {"down too far", Whole(VT_I4, 128), VT_I1, DISP_E_OVERFLOW, ""},
        {"sign to unsigned", Whole(VT_I4, -1), VT_UI4, S_OK, "4294967295"},
        {"sign to longer unsigned", Whole(VT_I4, -1), VT_UI8, DISP_E_OVERFLOW, ""},
        {"unsigned to signed", Whole(VT_UI4, 4294967295), VT_I4, S_OK, "-1"},
        {"up", Whole(VT_UI4, 4294967295), VT_I8, S_OK, "4294967295"},
        {"yes to number", Whole(VT_BOOL, -1), VT_I4, S_OK, "-1"},
        {"yes to byte", Whole(VT_BOOL, -1), VT_UI1, S_OK, "255"},
        {"yes to unsigned", Whole(VT_BOOL, -1), VT_UI2, S_OK, "65535"},
        {"yes to real", Whole(VT_BOOL, -1), VT_R8, S_OK, "-1.000000"},
        {"amount", Whole(VT_CY, 25000), VT_I4, S_OK, "2"},
        {"amount above", Whole(VT_CY, 25001), VT_I4, S_OK, "3"},
        {"number to amount", Whole(VT_I4, -3), VT_CY, S_OK, "-30000"},
        {"empty to number", Whole(VT_EMPTY, 0), VT_I4, S_OK, "0"},
        {"to nothing", Whole(VT_I4, 5), VT_EMPTY, S_OK, "kind 0"},
        {"to null", Whole(VT_I4, 5), VT_NULL, S_OK, "kind 1"},
        {"empty to text", Whole(VT_EMPTY, 0), VT_BSTR, S_OK, ""},
        {"null", Whole(VT_NULL, 0), VT_I4, DISP_E_TYPEMISMATCH, ""},
        {"error", Whole(VT_ERROR, 5), VT_I4, DISP_E_TYPEMISMATCH, ""},
        {"to error", Whole(VT_I4, 5), VT_ERROR, DISP_E_TYPEMISMATCH, ""},
        {"to object", Whole(VT_I4, 5), VT_DISPATCH, DISP_E_TYPEMISMATCH, ""},
        {"to a reference", Whole(VT_I4, 5), VT_I4 | VT_BYREF, DISP_E_TYPEMISMATCH, ""},
        {"to nothing known", Whole(VT_I4, 5), 15, DISP_E_BADVARTYPE, ""},
        {"to an array", Whole(VT_I4, 5), VT_ARRAY | VT_I4, DISP_E_TYPEMISMATCH, ""},
    };
    for (const Row& row : rows)
        ExpectConversion(row);
}

TEST(Convert, NumbersBecomeText)
{
    const Row rows[] = {
        {"large", Real(1e20), VT_BSTR, S_OK, "1E+20"},
        {"sixteen digits", Real(1234567890123456), VT_BSTR, S_OK, "1.23456789012346E+15"},
        {"fifteen digits", Real(123456789012345), VT_BSTR, S_OK, "123456789012345"},
        {"tenth", Real(0.1), VT_BSTR, S_OK, "0.1"},
        {"third", Real(1.0 / 3), VT_BSTR, S_OK, "0.333333333333333"},
        {"noise", Real(0.1 + 0.2), VT_BSTR, S_OK, "0.3"},
        {"small", Real(0.0001), VT_BSTR, S_OK, "0.0001"},
        {"smaller", Real(0.00001), VT_BSTR, S_OK, "1E-05"},
        {"negative", Real(-2.5), VT_BSTR, S_OK, "-2.5"},
        {"whole", Whole(VT_I4, -2147483648LL), VT_BSTR, S_OK, "-2147483648"},
        {"long", Whole(VT_UI8, -1), VT_BSTR, S_OK, "18446744073709551615"},
        {"amount", Whole(VT_CY, -12500), VT_BSTR, S_OK, "-1.25"},
        {"small amount", Whole(VT_CY, 1), VT_BSTR, S_OK, "0.0001"},
        {"round amount", Whole(VT_CY, 1000000), VT_BSTR, S_OK, "100"},
        {"yes", Whole(VT_BOOL, -1), VT_BSTR, S_OK, "-1"},
        {"no", Whole(VT_BOOL, 0), VT_BSTR, S_OK, "0"},
    };
    for (const Row& row : rows)
        ExpectConversion(row);
    ExpectConversion({"yes in words", Whole(VT_BOOL, -1), VT_BSTR, S_OK, "True"}, VARIANT_ALPHABOOL);
    ExpectConversion({"no in words", Whole(VT_BOOL, 0), VT_BSTR, S_OK, "False"}, VARIANT_ALPHABOOL);
}

TEST(Convert, TextsBecomeNumbers)
{
    const struct {
        const OLECHAR* text;
        VARTYPE vt;
        HRESULT result;
        const char* value;
    } rows[] = {
        {OLESTR("42"), VT_I4, S_OK, "42"},
        {OLESTR("  -42  "), VT_I4, S_OK, "-42"},
        {OLESTR("2.5"), VT_I4, S_OK, "2"},
        {OLESTR("3.5"), VT_I4, S_OK, "4"},
        {OLESTR("1e3"), VT_I4, S_OK, "1000"},
        {OLESTR("2147483648"), VT_I4, DISP_E_OVERFLOW, ""},
        {OLESTR("-1"), VT_UI1, DISP_E_OVERFLOW, ""},
        {OLESTR("1,234"), VT_I4, S_OK, "1234"},
        {OLESTR("$5"), VT_I4, S_OK, "5"},
        {OLESTR("(5)"), VT_I4, S_OK, "-5"},
        {OLESTR("1.5"), VT_R8, S_OK, "1.500000"},
        {OLESTR(".5"), VT_R8, S_OK, "0.500000"},
        {OLESTR("5."), VT_R8, S_OK, "5.000000"},
        {OLESTR("1E-2"), VT_R8, S_OK, "0.010000"},
        {OLESTR("1e400"), VT_R8, DISP_E_OVERFLOW, ""},
        {OLESTR("0"), VT_R8, S_OK, "0.000000"},
        {OLESTR("1234567890123456"), VT_R8, S_OK, "1234567890123456.000000"},
        {OLESTR(""), VT_R8, DISP_E_TYPEMISMATCH, ""},
        {OLESTR(" "), VT_I4, DISP_E_TYPEMISMATCH, ""},
        {OLESTR("abc"), VT_I4, DISP_E_TYPEMISMATCH, ""},
        {OLESTR("12abc"), VT_I4, DISP_E_TYPEMISMATCH, ""},
        {OLESTR("1 2"), VT_I4, DISP_E_TYPEMISMATCH, ""},
        {OLESTR("1.2.3"), VT_R8, DISP_E_TYPEMISMATCH, ""},
        {OLESTR("--1"), VT_I4, DISP_E_TYPEMISMATCH, ""},
        {OLESTR("-"), VT_I4, DISP_E_TYPEMISMATCH, ""},
        {OLESTR("1.25"), VT_CY, S_OK, "12500"},
        {OLESTR("True"), VT_BOOL, S_OK, "-1"},
        {OLESTR("FALSE"), VT_BOOL, S_OK, "0"},
        {OLESTR("#TRUE#"), VT_BOOL, S_OK, "-1"},
        {OLESTR("2"), VT_BOOL, S_OK, "-1"},
        {OLESTR("0.0"), VT_BOOL, S_OK, "0"},
        {OLESTR("maybe"), VT_BOOL, DISP_E_TYPEMISMATCH, ""},
    };
    for (const auto& row : rows) {
        const VARIANT from = TextValue(row.text);
        const std::string label = Narrow(V_BSTR(&from)) + " to " + std::to_string(row.vt);
        ExpectConversion({label.c_str(), from, row.vt, row.result, row.value});
    }
}

TEST(Convert, DecimalsAreExact)
{
    VARIANT value = TextValue(OLESTR("-79228162514264337593543950335"));
    VARIANT decimal = {};
    EXPECT_EQ(VariantChangeTypeEx(&decimal, &value, kUsEnglish, 0, VT_DECIMAL), S_OK);
    EXPECT_EQ(V_VT(&decimal), VT_DECIMAL);
    EXPECT_EQ(V_DECIMAL(&decimal).Hi32, 0xFFFFFFFFu);
    EXPECT_EQ(V_DECIMAL(&decimal).sign, DECIMAL_NEG);
    EXPECT_EQ(VariantChangeTypeEx(&decimal, &decimal, kUsEnglish, 0, VT_BSTR), S_OK);
    EXPECT_EQ(Narrow(V_BSTR(&decimal)), "-79228162514264337593543950335");
    VariantClear(&decimal);
    VariantClear(&value);
    ExpectConversion(
        {"too large", TextValue(OLESTR("79228162514264337593543950336")), VT_DECIMAL, DISP_E_OVERFLOW, ""});
    VARIANT tenth = Real(0.1);
    EXPECT_EQ(VariantChangeTypeEx(&tenth, &tenth, kUsEnglish, 0, VT_DECIMAL), S_OK);
    EXPECT_EQ(V_DECIMAL(&tenth).scale, 1);
    EXPECT_EQ(V_DECIMAL(&tenth).Lo64, 1u);
}

TEST(Convert, ObjectsStandForTheirDefaultProperty)
{
    VARIANT object = {};
    V_VT(&object) = VT_DISPATCH;
    V_DISPATCH(&object) = new CountedObject(17);
    VARIANT number = {};
    EXPECT_EQ(VariantChangeTypeEx(&number, &object, kUsEnglish, 0, VT_R8), S_OK);
    EXPECT_EQ(Show(number), "17.000000");
    VARIANT other = {};
    EXPECT_EQ(VariantChangeTypeEx(&other, &object, kUsEnglish, 0, VT_UNKNOWN), S_OK);
    EXPECT_EQ(V_VT(&other), VT_UNKNOWN);
    VariantClear(&other);
    EXPECT_EQ(VariantChangeTypeEx(&object, &object, kUsEnglish, 0, VT_BSTR), S_OK);
    EXPECT_EQ(Show(object), "17");
    VariantClear(&object);
    EXPECT_EQ(CountedObject::Alive(), 0);
}

TEST(Convert, FollowsReferencesAndKeepsTheTargetOnFailure)
{
    LONG number = 5;
    VARIANT reference = {};
    V_VT(&reference) = VT_I4 | VT_BYREF;
    V_I4REF(&reference) = &number;
    VARIANT to = TextValue(OLESTR("before"));
    EXPECT_EQ(VariantChangeTypeEx(&to, &reference, kUsEnglish, 0, VT_DISPATCH), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Show(to), "before");
    EXPECT_EQ(VariantChangeTypeEx(&to, &reference, kUsEnglish, 0, VT_BSTR), S_OK);
    EXPECT_EQ(Show(to), "5");
    VariantClear(&to);
}

TEST(Convert, DoesNotFollowTheProcessesLocale)
{
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE", "German"})
        if (std::setlocale(LC_NUMERIC, name))
            break;
    ExpectConversion({"to text", Real(1.5), VT_BSTR, S_OK, "1.5"});
    VARIANT value = TextValue(OLESTR("2.5"));
    EXPECT_EQ(VariantChangeTypeEx(&value, &value, kUsEnglish, 0, VT_R8), S_OK);
    EXPECT_EQ(V_R8(&value), 2.5);
    std::setlocale(LC_NUMERIC, before.c_str());
}

} // namespace
