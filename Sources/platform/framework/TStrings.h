#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/framework/TPersistent.h"

namespace zy {

class TReader;
class TWriter;

/// A list of texts with index from 0. Reads and writes are virtual, so that a list can also be a view on something
/// else.
class TStrings : public TPersistent {
  ZY_CLASS(TStrings, TPersistent)

  virtual int Count() const = 0;
  /// Text at Index. Throws ERangeError outside 0 to Count - 1.
  virtual std::string Get(int Index) const = 0;
  /// Replaces the text at Index. Throws ERangeError as Get.
  virtual void Put(int Index, const std::string& Value) = 0;
  virtual void Clear() = 0;
  virtual void Delete(int Index) = 0;
  /// Inserts before Index, which may be Count. Throws ERangeError beyond.
  virtual void Insert(int Index, const std::string& Value) = 0;

  /// Appends and returns the index of the new text.
  int Add(const std::string& Value);
  void AddStrings(const TStrings& Source);
  /// Index of the first text equal to Value, -1 when there is none.
  int IndexOf(std::string_view Value) const;
  /// Whether both hold the same texts in the same order.
  bool HasTextsOf(const TStrings& Other) const;
  /// All texts, each followed by a line feed.
  std::string Text() const;
  /// Replaces all texts by the lines of Value; line ends may be CR, LF or both.
  void SetText(std::string_view Value);

  /// Between these two, a list that tells of changes does so once, before the first one and at the end; not at all
  /// when there was none.
  virtual void BeginUpdate() {}
  virtual void EndUpdate() {}

  /// Copies the texts of another TStrings; the same ones change nothing.
  void Assign(const TPersistent* Source) override;
  void DefineProperties(TFiler& Filer) override;
};

/// A TStrings that holds its texts and tells of changes.
class TStringList : public TStrings {
  ZY_CLASS(TStringList, TStrings)
  using TNotifyEvent = std::function<void(TObject* Sender)>;

  int Count() const override { return static_cast<int>(FItems.size()); }
  std::string Get(int Index) const override;
  void Put(int Index, const std::string& Value) override;
  void Clear() override;
  void Delete(int Index) override;
  void Insert(int Index, const std::string& Value) override;
  void BeginUpdate() override { ++FUpdateCount; }
  void EndUpdate() override;
  /// Room for so many texts without further allocation.
  void SetCapacity(int Value) { FItems.reserve(static_cast<size_t>(Value < 0 ? 0 : Value)); }

  /// Runs before the list changes.
  TNotifyEvent OnChanging;
  /// Runs after the list has changed.
  TNotifyEvent OnChange;

 private:
  size_t Checked(int Index, int Limit) const;
  void Changing();
  void Changed();

  std::vector<std::string> FItems;
  int FUpdateCount = 0;
  bool FHasChanged = false;  // since the update began
};

}  // namespace zy
