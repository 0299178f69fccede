// Records: whatever the bytes, reading them as the record of a vector or of settings, in a stream, as XML and as INI,
// ends in what was read or in an exception of ours that names the object. Either way the object is whole: what it then
// writes is read by another one, which writes the same.

#include <algorithm>

#include "annotations/captions/ZyFont.h"
#include "fuzz/Check.h"
#include "fuzz/EachForm.h"
#include "graph/styles/ZyStyles.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy::testing {
namespace {

bool SameBytes(const TMemoryStream& Left, const TMemoryStream& Right) {
  return std::ranges::equal(Left.Bytes(), Right.Bytes());
}

template <class TRead>
void ReadInto(TZyRecord& Object, const TRead& Read) {
  try {
    Read(Object);
  } catch (const Exception& Error) {
    Check(std::string_view(Error.what()).find(Object.RecordName()) != std::string_view::npos,
          "an error names the object");
  }
}

/// Reads a record of a class by Read and sends what came of it through all three forms.
template <class T, class TRead>
void CheckClass(const TRead& Read) {
  T Object{nullptr}, FromStream{nullptr}, FromXml{nullptr}, FromIni{nullptr};
  ReadInto(Object, Read);
  TMemoryStream Bytes, Again;
  Object.WriteTo(Bytes);
  Bytes.SetPosition(0);
  FromStream.ReadFrom(Bytes);
  Check(Bytes.Remaining() == 0, "a record is read to its end");
  FromStream.WriteTo(Again);
  Check(SameBytes(Bytes, Again), "what was read writes a record that reads the same");
  TMemIniFile Ini, IniAgain;
  Object.WriteTo(Ini, "S");
  FromIni.ReadFrom(Ini, "S");
  FromIni.WriteTo(IniAgain, "S");
  Check(Ini.SaveToText() == IniAgain.SaveToText(), "INI reads the same");
  TXMLDocument Xml("r"), XmlAgain("r");
  try {
    Object.WriteTo(Xml.DocumentElement());
  } catch (const EXMLError&) {  // characters that XML cannot carry
    return;
  }
  FromXml.ReadFrom(Xml.DocumentElement());
  FromXml.WriteTo(XmlAgain.DocumentElement());
  Check(Xml.SaveToText() == XmlAgain.SaveToText(), "XML reads the same");
}

template <class TRead>
void CheckAll(const TRead& Read) {
  CheckClass<TZyDoubleVector>(Read);
  CheckClass<TZyGradientSettings>(Read);
  CheckClass<TZyLineSettings>(Read);
  CheckClass<TZyAreaSettings>(Read);
  CheckClass<TZyPointSymbolSettings>(Read);
  CheckClass<TZyFont>(Read);
}

}  // namespace
}  // namespace zy::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  using namespace zy;
  const std::string_view Text(reinterpret_cast<const char*>(Data), Size);
  testing::CheckEachForm(Text, "S", [](const auto& Read) { testing::CheckAll(Read); });
  return 0;
}
