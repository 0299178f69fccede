// Component streams: whatever the bytes, reading ends in a component or in an exception of ours, and what was read can
// be written and read again to the same bytes.

#include <memory>

#include "framework/Bytes.h"
#include "framework/SampleComponent.h"
#include "fuzz/Check.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

void CheckSettled(const TComponent& Component) {
  Check(!Component.IsLoading() && !Component.IsReading(), "no component stays in a reading state");
  for (const TComponent* Owned : Component.Components()) CheckSettled(*Owned);
}

std::unique_ptr<TComponent> ReadRoot(std::string_view Bytes, TComponent* Instance) {
  TMemoryStream Stream(AsBytes(Bytes));
  TReader Reader(Stream, 64);
  return std::unique_ptr<TComponent>(Reader.ReadRootComponent(Instance));
}

void CheckRootFromNothing(std::string_view Bytes) {
  std::unique_ptr<TComponent> Root;
  try {
    Root = ReadRoot(Bytes, nullptr);
  } catch (const Exception&) {
    return;
  }
  CheckSettled(*Root);
  const std::string Stored = BytesOf(*Root);
  const std::unique_ptr<TComponent> Copy = ReadRoot(Stored, nullptr);
  Check(BytesOf(*Copy) == Stored, "a component that was read is written and read again the same");
}

void CheckRootInPlace(std::string_view Bytes) {
  TSample Root;
  Root.MakePart();
  auto* const Child = new TSample(&Root);
  Child->SetName("First");
  try {
    ReadRoot(Bytes, &Root).release();
  } catch (const Exception&) {
    Check(Root.Components().size() == 2, "what a failed read created is deleted");
  }
  CheckSettled(Root);
  Check(Root.LoadedCount <= 1 && Child->LoadedCount <= 1, "Loaded runs once");
  const std::string Stored = BytesOf(Root);
  TSample Copy;
  Copy.MakePart();
  ReadRoot(Stored, &Copy).release();
  Check(BytesOf(Copy) == Stored, "an object whose reading failed is still whole");
}

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
  zy::testing::CheckRootFromNothing(Bytes);
  zy::testing::CheckRootInPlace(Bytes);
  zy::testing::CheckValues(Bytes);
  return 0;
}
