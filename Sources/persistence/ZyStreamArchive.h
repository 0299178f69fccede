#pragma once

#include "persistence/ZyArchive.h"

namespace zy {

class TStream;

/// Both directions of records in a stream: numbers little-endian in the width of their fields, see ZyIO.h. One method
/// for each type of value writes or reads it.
class TZyStreamArchive : public TZyArchive {
 public:
  bool IsReading() const override { return FReading; }
  bool IsStream() const override { return true; }
  bool NextGroup() override;
  void EndRecord() override;

 protected:
  TZyStreamArchive(TStream& Stream, bool Reading) : FStream(Stream), FReading(Reading) {}

  bool Visit(const TZyFieldName& Name, bool& Value) override;
  bool Visit(const TZyFieldName& Name, TOrdinal& Value) override;
  bool Visit(const TZyFieldName& Name, std::int32_t& Value) override;
  bool Visit(const TZyFieldName& Name, TZyColor& Value) override;
  bool Visit(const TZyFieldName& Name, float& Value) override;
  bool Visit(const TZyFieldName& Name, double& Value) override;
  bool Visit(const TZyFieldName& Name, std::string& Value) override;
  bool Visit(const TZyFieldName& Name, std::vector<double>& Values) override;
  bool Visit(const TZyFieldName& Name, std::vector<std::int32_t>& Values) override;
  bool Visit(const TZyFieldName& Name, std::vector<std::string>& Values) override;
  bool Choose(const TZyFieldName& Name, bool IsFirst) override;
  void VisitCount(const TZyFieldName& Name, int& Count) override;
  TZyIdentity Identify(bool Typed) override;

 private:
  template <class T>
  bool WriteOrRead(T& Value);
  template <class T>
  bool WriteOrReadAll(const TZyFieldName& Name, std::vector<T>& Values);
  int VisitCount(const TZyFieldName& Name, std::size_t Count, int Width);

  TStream& FStream;
  bool FReading;
};

/// Writes records to a stream.
class TZyStreamWriter : public TZyStreamArchive {
 public:
  explicit TZyStreamWriter(TStream& Stream) : TZyStreamArchive(Stream, false) {}
};

/// Reads records from a stream. Throws EReadError for a record that is cut off and for a bad ordinal.
class TZyStreamReader : public TZyStreamArchive {
 public:
  explicit TZyStreamReader(TStream& Stream) : TZyStreamArchive(Stream, true) {}
};

}  // namespace zy
