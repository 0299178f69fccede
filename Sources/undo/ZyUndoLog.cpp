#include "undo/ZyUndoLog.h"

namespace zy {
namespace {

constexpr std::size_t BufferSize = 1024;
constexpr std::int64_t SmallestCompaction = 4096;  // bytes; below this a copy is not worth its calls

}  // namespace

void TZyUndoLog::Open(std::unique_ptr<TStream> Stream, TComponent* Root) {
  FStream = std::move(Stream);
  FReader = std::make_unique<TReader>(*FStream, BufferSize);
  FWriter = std::make_unique<TWriter>(*FStream, BufferSize);
  FReader->SetRoot(Root);
  FWriter->SetRoot(Root);
  FWriter->SetWritesDefaults(true);
}

void TZyUndoLog::Close() {
  FWriter.reset();
  FReader.reset();
  FStream.reset();
}

void TZyUndoLog::Clear() {
  if (FRecords.empty() && FEnd == 0 && FGroupLevel == 0) return;
  FRecords.clear();
  FEntries.clear();
  FFirstRecord = FFirstEntry = FStreamStart = FEnd = 0;
  FCurrentRecord = FCurrentEntry = -1;
  FGroupLevel = 0;
  FStream->SetSize(0);
  FWriter->SetPosition(0);
}

int TZyUndoLog::LastRecord(int Entry) const {
  const bool IsNewest = Entry + 1 == EntryCount();
  return (IsNewest ? static_cast<int>(FRecords.size()) : FirstRecord(Entry + 1)) - 1;
}

std::string TZyUndoLog::Comment(int Entry) {
  Seek(FirstRecord(Entry));
  return FReader->ReadString();
}

void TZyUndoLog::MoveTo(int Entry) {
  FCurrentEntry = Entry;
  FCurrentRecord = Entry < 0 ? -1 : LastRecord(Entry);
}

void TZyUndoLog::DropReplayed() {
  const std::size_t Live = Index(FCurrentRecord + 1);
  if (Live < FRecords.size()) FEnd = FRecords[Live];
  FRecords.resize(Live);
  FEntries.resize(Index(FCurrentEntry + 1));
}

void TZyUndoLog::Begin(std::string_view Comment) {
  DropReplayed();
  FWriter->SetPosition(FEnd - FStreamStart);
  FRecords.push_back(FEnd);
  ++FCurrentRecord;
  if (FGroupLevel == 0) {
    FEntries.push_back(FFirstRecord + FCurrentRecord);
    ++FCurrentEntry;
  }
  FWriter->WriteString(Comment);
}

void TZyUndoLog::Commit() {
  FWriter->FlushBuffer();
  FStream->Flush();  // a full disk is heard of now, when the record can be withdrawn, and not with a later one
  FEnd = FWriter->Position() + FStreamStart;
}

void TZyUndoLog::Withdraw() {
  FRecords.pop_back();
  --FCurrentRecord;
  if (!FEntries.empty() && FEntries.back() == FFirstRecord + FCurrentRecord + 1) {
    FEntries.pop_back();
    --FCurrentEntry;
  }
  FWriter->FlushBuffer();  // which a full disk may refuse
}

void TZyUndoLog::CutOldest(TStream& Scratch) {
  const int Dropped = FirstRecord(1);
  FEntries.pop_front();
  FRecords.erase(FRecords.begin(), FRecords.begin() + Dropped);
  FFirstRecord += Dropped;
  ++FFirstEntry;
  FCurrentRecord -= Dropped;
  --FCurrentEntry;
  const std::int64_t Dead = FRecords.front() - FStreamStart;
  const std::int64_t Alive = FEnd - FRecords.front();
  if (Dead < Alive || Dead < SmallestCompaction) return;
  FWriter->FlushBuffer();
  Scratch.SetSize(0);
  FStream->SetPosition(Dead);
  Scratch.CopyFrom(*FStream, Alive);
  FStream->SetSize(0);
  Scratch.SetPosition(0);
  FStream->CopyFrom(Scratch, Alive);
  Scratch.SetSize(0);
  FStreamStart += Dead;
}

void TZyUndoLog::Seek(int Record) { FReader->SetPosition(FRecords[Index(Record)] - FStreamStart); }

}  // namespace zy
