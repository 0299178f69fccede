// Component streams: whatever the bytes, reading ends in a component or in an exception of ours, and what was read can
// be written and read again to the same bytes.

#include "framework/ReadTrial.h"
#include "fuzz/Check.h"
#include "platform/framework/TWriter.h"

namespace zy::testing {
namespace {

void CheckValues(std::string_view Bytes) {
  TMemoryStream Stream(AsBytes(Bytes));
  TReader Reader(Stream, 16);
  try {
    for (;;) {
      const std::int64_t Start = Reader.Position();
      const TVariant Value = Reader.ReadVariant();
      const std::int64_t End = Reader.Position();
      Reader.SetPosition(Start);
      Reader.SkipValue();
      Check(Reader.Position() == End, "skipping a value passes over what reading takes");
      TMemoryStream Written, Again;
      TWriter(Written).WriteVariant(Value);
      Written.SetPosition(0);
      TWriter(Again).WriteVariant(TReader(Written).ReadVariant());
      Check(AsText(Again) == AsText(Written), "a value is written and read again the same");
    }
  } catch (const Exception&) {
  }
  Reader.SetPosition(0);
  try {
    for (;;) Reader.SkipValue();
  } catch (const Exception&) {
  }
}

}  // namespace
}  // namespace zy::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const std::string_view Bytes(reinterpret_cast<const char*>(Data), Size);
  const std::string Fault = zy::testing::TReadTrial<zy::testing::TSample>(Bytes).Fault;
  zy::testing::Check(Fault.empty(), Fault.c_str());
  zy::testing::CheckValues(Bytes);
  return 0;
}
