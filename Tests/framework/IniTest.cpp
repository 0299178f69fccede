#include <gtest/gtest.h>

#include <limits>

#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "platform/framework/Application.h"
#include "platform/framework/TRegistryIniFile.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

std::string ContentOf(const fs::path& Path) {
  TFileStream Stream(Path, fmOpenRead);
  std::string Text(static_cast<std::size_t>(Stream.Size()), '\0');
  Stream.ReadBuffer(Text.data(), Text.size());
  return Text;
}

void Put(const fs::path& Path, std::string_view Text) {
  TFileStream(Path, fmCreate).WriteBuffer(Text.data(), Text.size());
}

TEST(Ini, EveryValueReadsBackExactly) {
  // The value, and how it stands in the text.
  const std::pair<std::string, std::string> Rows[] = {{"", ""},
                                                      {"first@\\rsecond", "first@\\rsecond"},  // three characters each
                                                      {"@\r", "\"@\\x0D\""},
                                                      {" @\\r", "\" @\\r\""},
                                                      {"\tx", "\"\\x09x\""},
                                                      {"\"", "\"\"\""},
                                                      {"\"quoted\"", "\"\"quoted\"\""},
                                                      {"in\"side", "in\"side"},
                                                      {"; no comment", "; no comment"},
                                                      {"\\x41", "\\x41"},
                                                      {" \\x41\\\\x", "\" \\x5Cx41\\\\x5Cx\""},
                                                      {"n\xC3\xA4h \xE2\x82\xAC", "n\xC3\xA4h \xE2\x82\xAC"},
                                                      {"bad \xC3 utf", "\"bad \\xC3 utf\""},
                                                      {"nul\0"s, "\"nul\\x00\""}};
  for (const auto& [Value, Stored] : Rows) {
    TMemIniFile Ini;
    Ini.WriteString("S", "Key", Value);
    EXPECT_EQ(Ini.SaveToText(), "[S]\nKey=" + Stored + "\n");
    TMemIniFile Again;
    Again.LoadFromText(Ini.SaveToText());
    EXPECT_EQ(Again.ReadString("S", "Key", "?"), Value) << Stored;
  }
  std::string AllBytes;
  for (int Byte = 0; Byte < 512; ++Byte) AllBytes += static_cast<char>(Byte % 256);
  TMemIniFile Ini, Again;
  Ini.WriteString("S", "All", AllBytes);
  TMemoryStream Stream;
  Ini.SaveTo(Stream);
  Stream.SetPosition(0);
  Again.LoadFrom(Stream);
  EXPECT_EQ(Again.ReadString("S", "All", ""), AllBytes);
}

TEST(Ini, TypedValuesReadBackAndDefaultsFillGaps) {
  TMemIniFile Ini;
  Ini.WriteBool("S", "Yes", true);
  Ini.WriteInteger("S", "Int", std::numeric_limits<int>::min());
  Ini.WriteInt64("S", "Big", std::numeric_limits<std::int64_t>::max());
  Ini.WriteFloat("S", "Real", 0.1);
  EXPECT_EQ(Ini.SaveToText(), "[S]\nYes=1\nInt=-2147483648\nBig=9223372036854775807\nReal=0.1\n");
  EXPECT_TRUE(Ini.ReadBool("S", "Yes", false));
  EXPECT_EQ(Ini.ReadInteger("S", "Int", 0), std::numeric_limits<int>::min());
  EXPECT_EQ(Ini.ReadInt64("S", "Big", 0), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(Ini.ReadFloat("S", "Real", 0), 0.1);
  EXPECT_EQ(Ini.ReadFloat("None", "Real", 2.5), 2.5);
  EXPECT_EQ(Ini.ReadString("S", "None", "d"), "d");
  EXPECT_THROW(Ini.ReadInteger("S", "Big", 0), EConvertError);
  Ini.WriteString("Part", "Key", "1,5");
  EXPECT_THROW(Ini.ReadBool("Part", "Key", false), EConvertError);
  EXPECT_THROW(Ini.ReadFloat("Part", "Key", 0), EConvertError);
  const std::string Message = MessageOf<EConvertError>([&] { Ini.ReadInteger("Part", "Key", 0); });
  for (const char* What : {"1,5", "Key", "Part"}) EXPECT_NE(Message.find(What), std::string::npos) << Message;
}

TEST(Ini, NamesIgnoreCaseAndKeepFormAndOrder) {
  TMemIniFile Ini;
  Ini.LoadFromText(
      "\xEF\xBB\xBF; comment\r\n[Zebra]\rb = 1\n\n a=2 \r\n# comment\n[ Apple ]\nx=y=z\n[ZEBRA]\nB=3\nc=\"\"\n");
  EXPECT_EQ(Ini.SaveToText(), "[Zebra]\nb=3\na=2\nc=\n\n[Apple]\nx=y=z\n");
  Ini.WriteString("zebra", "A", "4");
  EXPECT_EQ(Ini.ReadSections(), (std::vector<std::string>{"Zebra", "Apple"}));
  EXPECT_EQ(Ini.ReadSection("zEbRa"), (std::vector<std::string>{"b", "a", "c"}));
  EXPECT_EQ(Ini.ReadString("Zebra", "a", ""), "4");
  EXPECT_TRUE(Ini.ValueExists("APPLE", "X"));
  EXPECT_FALSE(Ini.ValueExists("Apple", "b"));
  Ini.WriteString("Ä", "k", "1");
  EXPECT_FALSE(Ini.SectionExists("ä")) << "only the case of ASCII letters is ignored";
  Ini.DeleteKey("ZEBRA", "B");
  Ini.DeleteKey("Zebra", "b");
  Ini.EraseSection("apple");
  EXPECT_EQ(Ini.SaveToText(), "[Zebra]\na=4\nc=\n\n[Ä]\nk=1\n");
  Ini.WriteString("Zebra", "b", "last");
  EXPECT_EQ(Ini.ReadSection("Zebra").back(), "b");
}

TEST(Ini, RefusesNamesThatWouldNotReadBack) {
  TMemIniFile Ini;
  for (const std::string& Name : {""s, " a"s, "a\t"s, "a\nb"s, ";a"s, "#a"s, "a\xFF"s, "a\0"s}) {
    EXPECT_THROW(Ini.WriteString(Name, "Key", ""), EIniFileError) << Name;
    EXPECT_THROW(Ini.WriteString("S", Name, ""), EIniFileError) << Name;
  }
  for (const char* Name : {"[a", "a]", "a[b"}) EXPECT_THROW(Ini.WriteString(Name, "Key", ""), EIniFileError) << Name;
  for (const char* Name : {"a=b", "=", "[a"}) EXPECT_THROW(Ini.WriteString("S", Name, ""), EIniFileError) << Name;
  EXPECT_FALSE(Ini.Modified());
  Ini.WriteString("a=b;c", "k;#[]", "v");
  TMemIniFile Again;
  Again.LoadFromText(Ini.SaveToText());
  EXPECT_EQ(Again.ReadString("a=b;c", "k;#[]", ""), "v");
}

TEST(Ini, MalformedTextNamesSourceAndLineAndChangesNothing) {
  const std::pair<int, std::vector<std::string>> Rows[] = {
      {1, {"[a\nb=1", "b=1\n[a]", "[a]b]", "[a\tb]", "; \xFF"}},
      {2,
       {"[a]\n=1", "[a]\nb=\"open", "[a]\nb=\"", "[a]\nb=\"\\x4\"", "[a]\nb=\"\\xG0\"", "[a]\nb=\xC3", "[a]\nb=\0"s,
        "[a]\n[b=1"}},
      {3, {"[a]\nb=1\nnonsense\n"}},
      {4, {"\n\r\n\r[]\n"}}};
  for (const auto& [Line, Texts] : Rows)
    for (const std::string& Text : Texts) {
      TMemIniFile Ini;
      Ini.WriteString("S", "Key", "kept");
      const std::string Message = MessageOf<EIniFileError>([&] { Ini.LoadFromText(Text, "some.ini"); });
      EXPECT_TRUE(Message.starts_with("some.ini, line " + std::to_string(Line) + ":")) << Text << ": " << Message;
      EXPECT_EQ(Ini.SaveToText(), "[S]\nKey=kept\n");
    }
}

TEST(IniFile, IsReadAtOnceAndWrittenWhole) {
  const TTemporaryFolder Folder;
  const fs::path Path = Folder / "a.ini";
  {
    TIniFile Ini(Path);
    Ini.UpdateFile();
    Ini.WriteInteger("S", "Key", 1);
    EXPECT_FALSE(fs::exists(Path)) << "nothing to write, and then not yet";
    Ini.UpdateFile();
    EXPECT_EQ(ContentOf(Path), "[S]\nKey=1\n");
    Put(Path, "[S]\nKey=2\n");
    Ini.UpdateFile();
    EXPECT_EQ(ContentOf(Path), "[S]\nKey=2\n") << "nothing has changed since the last save";
    Ini.WriteInteger("S", "Key", 3);
  }
  EXPECT_EQ(ContentOf(Path), "[S]\nKey=3\n");
  fs::permissions(Path, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("a.ini", Folder / "link.ini");
  {
    TIniFile Ini(Folder / "link.ini");
    Ini.WriteString("S", "Key", "through");
  }
  EXPECT_TRUE(fs::is_symlink(Folder / "link.ini"));
  EXPECT_EQ(ContentOf(Path), "[S]\nKey=through\n");
  EXPECT_EQ(fs::status(Path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  Put(Path, "[S]\nbroken");
  EXPECT_EQ(MessageOf<EIniFileError>([&] { const TIniFile Ini(Path); }).find(Path.string() + ", line 2:"), 0u);
  EXPECT_THROW(TIniFile(Folder.Path()), EFileError);
}

TEST(IniFile, AFailedSaveLeavesTheOldFileWhole) {
  const TTemporaryFolder Folder;
  const fs::path Path = Folder / "a.ini", Aside = Folder / "aside.ini";
  Put(Path, "[S]\nKey=old\n");
  TIniFile Ini(Path);
  Ini.WriteString("S", "Key", "new");
  fs::rename(Path, Aside);
  fs::create_directory(Path);  // stands in the way
  EXPECT_THROW(Ini.UpdateFile(), EFileError);
  EXPECT_TRUE(Ini.Modified());
  EXPECT_EQ(std::distance(fs::directory_iterator(Folder.Path()), {}), 2) << "no temporary file is left";
  fs::remove(Path);
  fs::rename(Aside, Path);
  Ini.UpdateFile();
  EXPECT_EQ(ContentOf(Path), "[S]\nKey=new\n");
  // A name that leaves no room for the temporary file's own.
  const fs::path Long = Folder / std::string(250, 'n');
  Put(Long, "[S]\nKey=old\n");
  {
    TIniFile Full(Long);
    Full.WriteString("S", "Key", "new");
    EXPECT_THROW(Full.UpdateFile(), EFileError);
  }
  EXPECT_EQ(ContentOf(Long), "[S]\nKey=old\n");
}

TEST(RegistryIniFile, LiesInTheUsersFolder) {
  const TTemporaryFolder Folder;
  const fs::path Kept = Application().ConfigFolder();
  Application().SetConfigFolder(Folder / "config");
  {
    TRegistryIniFile Ini("Maker/Program");
    Ini.WriteBool("Window", "Open", true);
  }
  EXPECT_EQ(ContentOf(Folder / "config/Maker/Program.ini"), "[Window]\nOpen=1\n");
  EXPECT_TRUE(TRegistryIniFile("Maker/Program").ReadBool("Window", "Open", false));
  for (const char* Name : {"", "../out", "a/../../out", "/out"})
    EXPECT_THROW(TRegistryIniFile{Name}, EFileError) << Name;
  Put(Folder / "config/file", "");
  EXPECT_THROW(TRegistryIniFile("file/below"), EFileError);
  Application().SetConfigFolder(Kept);
}

}  // namespace
}  // namespace zy::testing
