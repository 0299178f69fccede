#include "annotations/captions/ZyCaptionMarkup.h"

namespace zy {
namespace {

void ReplaceAll(std::string& Text, std::string_view What, std::string_view By) {
  std::size_t Done = 0;
  std::string Result;
  for (std::size_t At = Text.find(What); At != std::string::npos; At = Text.find(What, Done)) {
    Result.append(Text, Done, At - Done).append(By);
    Done = At + What.size();
  }
  if (Done > 0) Text = Result.append(Text, Done);
}

}  // namespace

std::string CaptionWithReturns(std::string_view Text) {
  std::string Result(Text);
  if (Text.find('\n') == std::string_view::npos) return Result;
  for (const char* End : {"\n\r", "\r\n", "\n"}) ReplaceAll(Result, End, "\r");
  return Result;
}

}  // namespace zy
