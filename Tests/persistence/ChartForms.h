#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "framework/Bytes.h"
#include "persistence/RandomChart.h"
#include "platform/framework/TMemIniFile.h"
#include "platform/framework/XmlDocument.h"

namespace zy::testing {

enum class TForm3 { Stream, Xml, Ini };
inline constexpr TForm3 AllForms[] = {TForm3::Stream, TForm3::Xml, TForm3::Ini};

inline std::string Written(const TZyCustomGraph& Graph, TForm3 Form, bool SaveData = true) {
  if (Form == TForm3::Stream) {
    TMemoryStream Stream;
    Graph.WriteTo(Stream, SaveData);
    return AsText(Stream);
  }
  if (Form == TForm3::Xml) {
    const TXMLDocument Document("Chart");
    Graph.WriteTo(Document.DocumentElement(), SaveData);
    return Document.SaveToText();
  }
  TMemIniFile Ini;
  Graph.WriteTo(Ini, "Chart", SaveData);
  return Ini.SaveToText();
}

/// Whole tells that nothing of the text may be left over.
inline void Read(TZyCustomGraph& Graph, TForm3 Form, std::string_view Text, bool Whole = true) {
  if (Form == TForm3::Stream) {
    TMemoryStream Stream(AsBytes(Text));
    Graph.ReadFrom(Stream);
    EXPECT_TRUE(Stream.Remaining() == 0 || !Whole);
  } else if (Form == TForm3::Xml) {
    TXMLDocument Document("Chart");
    Document.LoadFromText(Text);
    Graph.ReadFrom(Document.DocumentElement());
  } else {
    TMemIniFile Ini;
    Ini.LoadFromText(Text);
    Graph.ReadFrom(Ini, "Chart");
  }
  if (auto* const Cartesian = dynamic_cast<TZyGraph2D*>(&Graph))
    for (TZySeries* Series : Cartesian->RelatedSeries()) Quieten(*Series);
}

/// Whether two texts are the same, and where they begin to differ.
inline ::testing::AssertionResult Same(const std::string& Left, const std::string& Right) {
  const auto [At, Other] = std::ranges::mismatch(Left, Right);
  if (At == Left.end() && Other == Right.end()) return ::testing::AssertionSuccess();
  const std::size_t Place = static_cast<std::size_t>(At - Left.begin());
  const std::size_t From = Place < 60 ? 0 : Place - 60;
  return ::testing::AssertionFailure() << "byte " << Place << " of " << Right.size() << ": "
                                       << ::testing::PrintToString(Left.substr(From, 100)) << "\n"
                                       << ::testing::PrintToString(Right.substr(From, 100));
}

}  // namespace zy::testing
