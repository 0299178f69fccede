#pragma once

#include "persistence/ZyArchive.h"

namespace zy {

class TStream;

/// Writes records to a stream: numbers little-endian in the width of their fields, see ZyIO.h.
class TZyStreamWriter : public TZyArchive {
 public:
  explicit TZyStreamWriter(TStream& Stream) : FStream(Stream) {}
  bool IsReading() const override { return false; }
  bool IsStream() const override { return true; }
  bool NextGroup() override;
  void EndRecord() override;

 protected:
  bool Visit(const TZyFieldName& Name, bool& Value) override;
  bool Visit(const TZyFieldName& Name, TOrdinal& Value) override;
  bool Visit(const TZyFieldName& Name, std::int32_t& Value) override;
  bool Visit(const TZyFieldName& Name, TZyColor& Value) override;
  bool Visit(const TZyFieldName& Name, float& Value) override;
  bool Visit(const TZyFieldName& Name, double& Value) override;
  bool Visit(const TZyFieldName& Name, std::string& Value) override;

 private:
  TStream& FStream;
};

/// Reads records from a stream. Throws EReadError for a record that is cut off and for a bad ordinal.
class TZyStreamReader : public TZyArchive {
 public:
  explicit TZyStreamReader(TStream& Stream) : FStream(Stream) {}
  bool IsReading() const override { return true; }
  bool IsStream() const override { return true; }
  bool NextGroup() override;
  void EndRecord() override;

 protected:
  bool Visit(const TZyFieldName& Name, bool& Value) override;
  bool Visit(const TZyFieldName& Name, TOrdinal& Value) override;
  bool Visit(const TZyFieldName& Name, std::int32_t& Value) override;
  bool Visit(const TZyFieldName& Name, TZyColor& Value) override;
  bool Visit(const TZyFieldName& Name, float& Value) override;
  bool Visit(const TZyFieldName& Name, double& Value) override;
  bool Visit(const TZyFieldName& Name, std::string& Value) override;

 private:
  TStream& FStream;
};

}  // namespace zy
