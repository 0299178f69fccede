#pragma once

#include <memory>
#include <string>

#include "framework/Bytes.h"
#include "framework/SampleComponent.h"
#include "platform/framework/TReader.h"
#include "texts/Exceptions.h"

namespace zy::testing {

/// Reads a root, into an instance or as a new one.
inline TComponent* ReadBytes(std::string_view Bytes, TComponent* Instance) {
  TMemoryStream Stream(AsBytes(Bytes));
  TReader Reader(Stream, 16);
  return Reader.ReadRootComponent(Instance);
}

inline bool IsSettled(const TComponent& Component) {
  bool Result = !Component.IsLoading() && !Component.IsReading();
  for (const TComponent* Owned : Component.Components()) Result = Result && IsSettled(*Owned);
  return Result;
}

/// Reads bytes that may be bad as a new root and into a filled one of a class of samples.
template <class T>
struct TReadTrial {
  explicit TReadTrial(std::string_view Bytes) {
    ReadNew(Bytes);
    ReadInPlace(Bytes);
  }
  bool Fits = true;   ///< the bytes could be read into the filled one
  std::string Fault;  ///< what is wrong after that; empty when all is well

 private:
  void Expect(bool Holds, const char* What) {
    if (!Holds) Fault = What;
  }
  void ReadNew(std::string_view Bytes) {
    std::unique_ptr<TComponent> Root;
    try {
      Root.reset(ReadBytes(Bytes, nullptr));
    } catch (const Exception&) {
      return;
    }
    Expect(IsSettled(*Root), "a new component stays in a reading state");
    const std::string Stored = BytesOf(*Root);
    const std::unique_ptr<TComponent> Copy(ReadBytes(Stored, nullptr));
    Expect(BytesOf(*Copy) == Stored, "a component that was read is not written and read again the same");
  }
  static void Fill(T& Root) {
    if (Root.Part() == nullptr) Root.MakePart();
  }
  void ReadInPlace(std::string_view Bytes) {
    T Root, Copy;
    Fill(Root);
    auto* const Child = new TSample(&Root);
    Child->SetName("First");
    try {
      ReadBytes(Bytes, &Root);
    } catch (const Exception&) {
      Fits = false;
      Expect(Root.Components().size() == 2, "what a failed read created is still there");
    }
    Expect(Root.Components()[1] == Child && IsSettled(Root), "the children are not as they were");
    Expect(Root.LoadedCount <= 1 && Child->LoadedCount <= 1, "Loaded runs twice");
    int Changes = 0;
    Root.Lines().OnChange = [&Changes](TObject*) { ++Changes; };
    Root.Lines().Add("x");
    Expect(Changes == 1, "a list that stopped in the middle does not tell of its changes as before");
    const std::string Stored = BytesOf(Root);
    Fill(Copy);
    ReadBytes(Stored, &Copy);
    Expect(BytesOf(Copy) == Stored, "an object whose reading failed is not whole");
  }
};

}  // namespace zy::testing
