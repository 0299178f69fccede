#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zy {

class TComponent;
class TPropInfo;
class TClassInfo;

/// Root of all classes that know their own name and properties. Objects have an identity and are not copied; settings
/// copy their values with TPersistent::Assign.
class TObject {
 public:
  TObject() = default;
  virtual ~TObject() = default;
  TObject(const TObject&) = delete;
  TObject& operator=(const TObject&) = delete;

  static const TClassInfo& StaticClassInfo();
  /// Description of the object's own class.
  virtual const TClassInfo& ClassInfo() const { return StaticClassInfo(); }
  /// Name of the object's own class, as it stands in stored forms.
  const char* ClassName() const;
};

/// What the library knows of a class at run time: its name, its base, how to make one and its published properties.
/// One constant object per class, made by ZY_PUBLISHED.
class TClassInfo {
 public:
  /// Makes a component of the class, owned by Owner. Null for classes that cannot be made by name.
  using TFactory = TComponent* (*)(TComponent* Owner);

  TClassInfo(const char* ClassName, const TClassInfo* Base, TFactory Maker, std::vector<TPropInfo> Own);
  ~TClassInfo();
  TClassInfo(const TClassInfo&) = delete;
  TClassInfo& operator=(const TClassInfo&) = delete;

  const char* Name() const { return FName; }
  /// The base class, null for TObject.
  const TClassInfo* Parent() const { return FParent; }
  TFactory Factory() const { return FFactory; }
  /// Whether this is Base or a descendant of it.
  bool InheritsFrom(const TClassInfo& Base) const;

  /// All published properties, those of the base classes first. A property published anew by a descendant stands once,
  /// at its first place, as the descendant describes it.
  const std::vector<const TPropInfo*>& Properties() const { return FAll; }
  /// The same with the hidden rows among them.
  const std::vector<const TPropInfo*>& Rows() const { return FRows; }
  /// The published property of exactly this name, null when there is none. Costs one hash look-up.
  const TPropInfo* FindProperty(std::string_view PropName) const;
  /// The same among all rows, hidden ones included.
  const TPropInfo* FindRow(std::string_view PropName) const;

 private:
  void Publish(const TPropInfo& Row);
  static void Enter(const TPropInfo& Row, std::vector<const TPropInfo*>& List);
  void Republish(std::string_view Names);

  const char* FName;
  const TClassInfo* FParent;
  TFactory FFactory;
  std::deque<TPropInfo> FOwn;  // rows stay where they are
  std::vector<const TPropInfo*> FRows;
  std::vector<const TPropInfo*> FAll;
  std::unordered_map<std::string_view, const TPropInfo*> FByName;
};

/// Declares the run-time description of a class; stands first in the class body, and leaves it at `public:`.
#define ZY_CLASS(Class, Base)                                     \
 public:                                                          \
  using Inherited = Base;                                         \
  using Self = Class;                                             \
  [[gnu::cold]] static const ::zy::TClassInfo& StaticClassInfo(); \
  const ::zy::TClassInfo& ClassInfo() const override { return StaticClassInfo(); }

}  // namespace zy
