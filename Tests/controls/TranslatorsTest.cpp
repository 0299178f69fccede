#include "platform/controls/Translators.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTranslator>
#include <QXmlStreamReader>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "texts/ZyTableTexts.h"

namespace zy {
namespace {

class TranslatorsTest : public testing::Test {
 protected:
  ~TranslatorsTest() override { ResetLanguage(); }

  static std::vector<std::string> Texts() {
    std::vector<std::string> Result;
    for (std::size_t i = 0; i < AllTextCount; ++i) Result.push_back(LoadResString(static_cast<TZyText>(i)));
    return Result;
  }
  /// What the language file itself gives, and the English texts.
  static std::vector<std::string> German() {
    LoadLanguage(ZY_LANGUAGES "/de.lng");
    return Texts();
  }
  static std::vector<std::string> English() {
    ResetLanguage();
    return Texts();
  }
};

/// Knows messages of the library's context by their English text and comment.
class THandMade : public QTranslator {
 public:
  QString translate(const char* Context, const char* Source, const char* Comment, int) const override {
    const auto Found = Messages.find({QString::fromUtf8(Source), QString::fromUtf8(Comment)});
    return qstrcmp(Context, "Zyphos") != 0 || Found == Messages.end() ? QString() : Found->second;
  }
  bool isEmpty() const override { return false; }

  std::map<std::pair<QString, QString>, QString> Messages;
};

TEST_F(TranslatorsTest, SourceForTranslatorsGivesTheTextsOfTheLanguageFile) {
  const std::vector<std::string> Wanted = German();
  QFile File(ZY_TRANSLATIONS "/zyphos_de.ts");
  ASSERT_TRUE(File.open(QIODevice::ReadOnly));
  THandMade Translator;
  std::map<QString, QString> Parts;
  for (QXmlStreamReader Xml(&File); !Xml.atEnd();) {
    ASSERT_NE(Xml.readNext(), QXmlStreamReader::Invalid) << Xml.errorString().toStdString();
    if (Xml.isEndElement() && Xml.name() == u"message")
      Translator.Messages[{Parts["source"], Parts["comment"]}] = Parts["translation"];
    else if (Xml.isStartElement() &&
             (Xml.name() == u"source" || Xml.name() == u"comment" || Xml.name() == u"translation"))
      Parts[Xml.name().toString()] = Xml.readElementText();
  }
  QCoreApplication::installTranslator(&Translator);
  UseTranslators();
  EXPECT_EQ(Texts(), Wanted);
  QCoreApplication::removeTranslator(&Translator);
}

TEST_F(TranslatorsTest, CompiledFileGivesTheTextsOfTheLanguageFile) {
  QTranslator Translator;
  if (!Translator.load(ZY_TRANSLATIONS "/zyphos_de.qm")) GTEST_SKIP() << "there is no compiler of translations here";
  const std::vector<std::string> Wanted = German(), Before = English();
  UseTranslators();
  QCoreApplication::installTranslator(&Translator);
  EXPECT_EQ(Texts(), Wanted);
  QCoreApplication::removeTranslator(&Translator);
  EXPECT_EQ(Texts(), Before);
}

TEST_F(TranslatorsTest, TextsFollowTheTranslators) {
  const std::vector<std::string> Before = English();
  THandMade Translator;
  Translator.Messages[{"Undo", "_sUndo"}] = QString::fromUtf8(" R\u00FCck\\g\u00E4ngig = # ");
  Translator.Messages[{"Redo", "_sUndo"}] = "of another row";
  Translator.Messages[{"Parsing error in function:\n%s", "_sParserError"}] = "One:\nTwo:\r\nThree: %s";
  Translator.Messages[{"Error", "_sErr"}] = "  ";
  UseTranslators();
  EXPECT_EQ(Texts(), Before);
  QCoreApplication::installTranslator(&Translator);
  EXPECT_EQ(LoadResString(_sUndo), "R\u00FCck\\g\u00E4ngig = #");
  EXPECT_EQ(LoadResString(_sParserError), "One:\rTwo:\rThree: %s");
  EXPECT_EQ(LoadResString(_sRedo), "Redo");
  EXPECT_EQ(LoadResString(_sErr), "Error");
  QCoreApplication::removeTranslator(&Translator);
  EXPECT_EQ(Texts(), Before);
}

}  // namespace
}  // namespace zy
