// Bytes and texts of the settings' records, written out by hand.

#include "persistence/ZyRecord.h"

#include <gtest/gtest.h>

#include <sstream>

#include "annotations/captions/ZyFont.h"
#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "graph/styles/ZyStyles.h"
#include "platform/framework/TMemIniFile.h"
#include "platform/framework/XmlDocument.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

using namespace std::string_literals;
using testing::AsBytes;
using testing::AsText;

// Settings that differ from new ones in every field: their records and texts.
const std::string GradientBytes =
    "\x01\x02\x03\x02\x01\x80\xFF\xFF\x00\xFF\xFF\xFF\xFF\x00"
    "\x00\x00\x34\x42\x00\x00\x80\x3E\x00\x00\x40\x3F\x00\x00\x80\x3F\x00"s;
const std::string GradientXml =
    " Visible=\"true\" Style=\"2\" FirstColor=\"$80010203\" MiddleColor=\"Aqua\" LastColor=\"Transparent\""
    " LinearAngle=\"45\" LinearCenter=\"0.25\" RadialCenterX=\"0.75\" RadialCenterY=\"1\"";
const std::string GradientKeys =
    ".Visible=1 .Style=2 .FirstColor=$80010203 .MiddleColor=Aqua .LastColor=Transparent .LinearAngle=45"
    " .LinearCenter=0.25 .RadialCenterX=0.75 .RadialCenterY=1 ";
/// The same with something before each key.
std::string GradientKeysOf(const std::string& Owner) {
  std::string Result;
  std::istringstream Keys(GradientKeys);
  for (std::string Key; Keys >> Key;) Result += Owner + Key + " ";
  return Result;
}

const std::string LineBytes = "\xFF\x00\x00\xFF\xCD\xCC\xCC\x3D\x03\x01"s + GradientBytes + "\0"s;
const std::string LineXml = " Color=\"Blue\" Width=\"0.1\" DashStyle=\"3\"";
const std::string LineKeys = ".Color=Blue .Width=0.1 .DashStyle=3 ";

const std::string AreaStart = "\x01\x56\x34\x12\xFF\xFF\xFF\xFF\x01\x34"s;
const std::string FontStart = "\x02\x00\x00\x00\xC3\x84\x09\x00\x00\x00\x05"s;
const std::string FontSecond = "\x08\x04\x00\x00\xFF\xFF"s + GradientBytes;
const std::string FontBytes = FontStart + "\x01" + FontSecond + "\x01\x00\x00\x14\x41\x00"s;

/// All keys of a section with their values, without the part of their names that all of them begin with.
std::string KeysOf(const TCustomIniFile& Ini, const std::string& Prefix) {
  std::string Result;
  for (const std::string& Key : Ini.ReadSection("S"))
    Result += (Key.starts_with(Prefix) ? Key.substr(Prefix.size()) : "?") + "=" + Ini.ReadString("S", Key, "") + " ";
  return Result;
}

template <class T>
std::string StreamText(const T& Settings) {
  TMemoryStream Stream;
  ToStream(Stream, Settings);
  return AsText(Stream);
}

/// Reads the bytes, which must be a whole record.
template <class T>
void Read(const std::string& Bytes, T& Settings) {
  TMemoryStream Stream(AsBytes(Bytes));
  FromStream(Stream, Settings);
  EXPECT_EQ(Stream.Remaining(), 0);
}

/// Reads a record and writes it in the three forms against what is expected, and reads each into a new object.
template <class T>
void CheckForms(const std::string& Bytes, const std::string& Xml, const std::string& Keys, bool GradientInTexts) {
  SCOPED_TRACE(T::StaticClassInfo().Name());
  T FromBytes(nullptr);
  Read(Bytes, FromBytes);
  EXPECT_EQ(StreamText(FromBytes), Bytes);

  TXMLDocument Document("Root");
  ToNode(Document.DocumentElement(), FromBytes, "Part");
  const std::string Written = Document.SaveToText();
  EXPECT_NE(Written.find("<Part" + Xml), std::string::npos) << Written;
  TMemIniFile Ini;
  ToIni(Ini, "S", "Prefix", FromBytes);
  EXPECT_EQ(KeysOf(Ini, "Prefix"), Keys);

  FormatSettings().DecimalSeparator = ',';
  T FromXml(nullptr), FromKeys(nullptr);
  FromNode(Document.DocumentElement(), FromXml, "Part");
  FromIni(Ini, "S", "Prefix", FromKeys);
  FormatSettings().DecimalSeparator = '.';
  for (T* const Settings : {&FromXml, &FromKeys}) {
    if (!GradientInTexts)
      if constexpr (requires { Settings->Gradient(); }) Read(GradientBytes, Settings->Gradient());
    EXPECT_EQ(StreamText(*Settings), Bytes);
  }
}

TEST(ZyStyleRecordsTest, EveryClassInThreeForms) {
  CheckForms<TZyGradientSettings>(GradientBytes, GradientXml, GradientKeys, true);
  CheckForms<TZySimpleLineSettings>(LineBytes, LineXml, LineKeys, false);
  CheckForms<TZyLineSettings>("\0"s + LineBytes, " Visible=\"false\"" + LineXml, ".Visible=0 " + LineKeys, false);
  CheckForms<TZyAreaSettings>(
      AreaStart + "\x01" + GradientBytes + "\0"s,
      " Visible=\"true\" ForeColor=\"$FF123456\" BackColor=\"$01FFFFFF\" AreaStyle=\"52\"",
      ".Visible=1 .ForeColor=$FF123456 .BackColor=$01FFFFFF .Style=52 " + GradientKeysOf(".Gradient"), true);
  CheckForms<TZyFont>(
      FontBytes, " Name=\"Ä\" Size=\"9.25\" Style=\"5\" DrawEffects=\"8\" RenderingHint=\"4\" FillColor=\"Red\"",
      ".Name=Ä .Size=9.25 .Style=5 .DrawEffects=8 .RenderingHint=4 .FillColor=Red " + GradientKeysOf(".Gradient"),
      true);
}

TEST(ZyStyleRecordsTest, NodesOfLinesAndFontsHaveFixedNames) {
  TXMLDocument Document("Root");
  const IXMLNode Root = Document.DocumentElement();
  TZySimpleLineSettings Line(nullptr), OtherLine(nullptr);
  TZyFont Font, OtherFont;
  Read(LineBytes, Line);
  Read(FontBytes, Font);
  ToNode(Root, Line);
  ToNode(Root, Font);
  EXPECT_TRUE(Root.Node("Font").ContainsNode("Gradient"));
  EXPECT_FALSE(Root.Node("Line").ContainsNode("Gradient"));
  FromNode(Root, OtherLine);
  FromNode(Root, OtherFont);
  EXPECT_EQ(OtherLine.Color(), Colors::Blue);
  EXPECT_EQ(StreamText(OtherFont), FontBytes);
}

TEST(ZyStyleRecordsTest, RecordsOfOlderWritersEndBeforeLaterGroups) {
  TZySimpleLineSettings Line(nullptr);
  Line.Gradient().SetVisible(true);
  Read(LineBytes.substr(0, 9) + "\0"s, Line);
  EXPECT_EQ(Line.DashStyle(), DashStyleDashDot);
  EXPECT_TRUE(Line.Gradient().Visible());

  TZyAreaSettings Area(nullptr);
  Area.Gradient().SetVisible(true);
  Read(AreaStart + "\0"s, Area);
  EXPECT_EQ(Area.AreaStyle(), TZyAreaStyle::SolidDiamond);
  EXPECT_TRUE(Area.Gradient().Visible());

  TZyFont Font;
  Font.SetFillColor(Colors::Green);
  Read(FontStart + "\0"s, Font);
  EXPECT_EQ(Font.Size(), 9.0f);
  EXPECT_EQ(Font.FillColor(), Colors::Green);
  Read(FontStart + "\x01" + FontSecond + "\0"s, Font);
  EXPECT_EQ(Font.Size(), 9.0f);
  EXPECT_EQ(Font.FillColor(), Colors::Red);
}

TEST(ZyStyleRecordsTest, XmlTakesEarlierFieldsToBeThereAndLaterOnesNot) {
  const auto From = [](const std::string& Inner, auto& Settings) {
    TXMLDocument Document;
    Document.LoadFromText("<Root>" + Inner + "</Root>");
    FromNode(Document.DocumentElement(), Settings, "A");
  };
  TZyAreaSettings Area(nullptr);
  From("<A Visible='1' ForeColor='Red' BackColor='Blue' AreaStyle='0'/>", Area);
  EXPECT_EQ(Area.BackColor(), Colors::Blue);
  TZyFont Font;
  From("<A Name='Courier' Size='8.5' Style='2'/>", Font);
  EXPECT_EQ(Font.Size(), 8.5f);
  EXPECT_EQ(Font.Style(), TFontStyles{TFontStyle::Italic});

  EXPECT_THROW(From("<B/>", Area), EXMLError);
  EXPECT_THROW(From("<A Visible='0' ForeColor='Green'/>", Area), EXMLError);
  EXPECT_EQ(Area.ForeColor(), Colors::Green);  // what was read stays
  EXPECT_THROW(From("<A Name='x' Size='8' Style='0'><Gradient/></A>", Font), EXMLError);
  for (const char* Bad : {"<A Visible='maybe'/>", "<A Visible='0' ForeColor='Reddish'/>",
                          "<A Visible='0' ForeColor='Red' BackColor='Red' AreaStyle='54'/>",
                          "<A Visible='0' ForeColor='Red' BackColor='Red' AreaStyle='-1'/>"})
    EXPECT_THROW(From(Bad, Area), EConvertError) << Bad;
  EXPECT_THROW(From("<A Name='x' Size='1e9' Style='0'/>", Font), ERangeError);
  EXPECT_EQ(Font.Size(), 8.0f);
}

TEST(ZyStyleRecordsTest, AbsentIniKeysKeepTheValueButForFixedDefaults) {
  TMemIniFile Ini;
  Ini.WriteString("S", "G.Style", "1");
  TZyGradientSettings Gradient(nullptr);
  Read(GradientBytes, Gradient);
  FromIni(Ini, "S", "G", Gradient);
  std::string Expected = GradientBytes;
  Expected.replace(1, 1, "\x01").replace(14, 16, "\0\0\xB4\x42\0\0\0\x3F\0\0\0\x3F\0\0\0\x3F"s);  // 90, 0.5, 0.5, 0.5
  EXPECT_EQ(StreamText(Gradient), Expected);
  TZyLineSettings Line(nullptr);
  Read("\0"s + LineBytes, Line);
  FromIni(Ini, "S", "Nothing", Line);
  EXPECT_EQ(Line.Width(), 1.0f);
  EXPECT_EQ(Line.DashStyle(), DashStyleDashDot);
  EXPECT_FALSE(Line.Visible());

  Ini.WriteString("S", "G.Style", "3");
  const std::string Message = testing::MessageOf<EConvertError>([&] { FromIni(Ini, "S", "G", Gradient); });
  EXPECT_NE(Message.find("G.Style"), std::string::npos) << Message;
  Ini.WriteString("Other", ".Width", "4");
  FromIni(Ini, "Other", "", Line);
  EXPECT_EQ(Line.Width(), 4.0f);
}

TEST(ZyStyleRecordsTest, DamagedStreamsAreReadErrors) {
  std::vector<std::string> Damaged;
  for (std::size_t Length = 0; Length < FontBytes.size(); ++Length) Damaged.push_back(FontBytes.substr(0, Length));
  for (const auto& [At, Byte] : {std::pair{10U, '\x10'}, {12U, '\x10'}, {13U, '\x06'}, {19U, '\x03'}, {19U, '\xFF'}})
    Damaged.emplace_back(FontBytes)[At] = Byte;
  for (const std::string& Bytes : Damaged) {
    TMemoryStream Stream(AsBytes(Bytes));
    TZyFont Read;
    EXPECT_THROW(FromStream(Stream, Read), EReadError) << ::testing::PrintToString(Bytes);
  }
}

}  // namespace
}  // namespace zy
