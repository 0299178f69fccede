// Turns a chart file of one form into one of another form, or into a picture. The forms follow from the extensions.
//
//   convert [OPTION]... SOURCE TARGET

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/ChartDocument.h"
#include "common/ChartForms.h"
#include "graph/ZyImageFileNames.h"
#include "platform/controls/TApplication.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Metafile.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy::examples {
namespace {

constexpr const char* Help =
    R"(Usage: convert [OPTION]... SOURCE TARGET

Turns the chart file SOURCE into TARGET, a chart file of any form or a picture:

  .zys         chart as a stream, the smallest and fastest form
  .zyx, .xml   chart as XML
  .zyi, .ini   chart as INI
  .png, .jpg, .jpeg, .tif, .tiff, .gif, .bmp   picture of pixels
  .svg, .pdf, .emf                             drawing

Options:
  --size WxH      size of the picture in pixels, 96 to an inch; without it the
                  size that the chart had when it was saved
  --scale FACTOR  stored pixels for each pixel of the size: 2 gives a picture
                  for a screen of double density, 3.125 one of 300 dpi
  --without-data  write the chart file without the values of its curves, which
                  a program that has them can load
  --holder NAME   a form or data module that parts of the chart belong to, other
                  than that of the chart itself; may be told several times
  --help          show this text

Exit code:
  0  TARGET is written
  1  SOURCE cannot be read
  2  the arguments make no sense
  3  TARGET cannot be written
What fails leaves an old TARGET as it was.
)";

constexpr int MostPixels = 32767;  // along a side of a picture

enum TExitCode { Done = 0, CannotRead = 1, WrongArguments = 2, CannotWrite = 3 };

/// What is wrong with the arguments, for the user.
struct TUsageError {
  std::string Text;
};

struct TSize {
  int Width, Height;
};

struct TJob {
  std::filesystem::path Source, Target;
  std::optional<TZyImageFileFormat> Picture;  // of the target; a chart without
  std::optional<TSize> Size;
  std::optional<float> Scale;
  std::vector<std::string> Holders;
  bool WithData = true;
  bool AsksHelp = false;
};

bool IsDrawing(TZyImageFileFormat Format) {
  return Format == TZyImageFileFormat::SVG || Format == TZyImageFileFormat::PDF || Format == TZyImageFileFormat::EMF;
}

// --- Arguments ------------------------------------------------------------------------------------------------------

/// A whole text as a number; nothing for any other.
template <class TNumber>
std::optional<TNumber> NumberOf(std::string_view Text) {
  TNumber Value{};
  const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), Value);
  if (Error != std::errc() || End != Text.data() + Text.size()) return std::nullopt;
  return Value;
}

TSize ParseSize(const std::string& Text) {
  const std::size_t Cross = Text.find('x');
  const auto Width = NumberOf<int>(std::string_view(Text).substr(0, Cross));
  const auto Height =
      NumberOf<int>(std::string_view(Text).substr(Cross == std::string::npos ? Text.size() : Cross + 1));
  if (!Width || !Height || *Width < 1 || *Height < 1 || *Width > MostPixels || *Height > MostPixels)
    throw TUsageError{"--size " + Text + ": a size is two numbers of pixels as in 1200x800, each at most 32767"};
  return {*Width, *Height};
}

float ParseScale(const std::string& Text) {
  const auto Value = NumberOf<float>(Text);
  if (!Value || !(*Value >= 0.1f && *Value <= 100))
    throw TUsageError{"--scale " + Text + ": a scale is a number from 0.1 to 100"};
  return *Value;
}

/// What the extensions and options have to say to each other.
void TestJob(TJob& Job) {
  if (!ChartFormOf(Job.Source))
    throw TUsageError{Job.Source.string() + ": the extension tells no form of charts; these are " + ChartExtensions()};
  Job.Picture = ImageFileFormatOf(Job.Target);
  const bool IsChart = ChartFormOf(Job.Target).has_value();
  if (!Job.Picture && !IsChart)
    throw TUsageError{Job.Target.string() + ": the extension tells neither a form of charts nor a kind of pictures"};
  if (IsChart && (Job.Size || Job.Scale)) throw TUsageError{"--size and --scale are for pictures"};
  if (Job.Picture && IsDrawing(*Job.Picture) && Job.Scale)
    throw TUsageError{"--scale is for pictures of pixels; a drawing has all sizes"};
  if (Job.Picture && !Job.WithData) throw TUsageError{"--without-data is for charts"};
}

TJob ParseArguments(const std::vector<std::string>& Arguments) {
  TJob Job;
  std::vector<std::string> Files;
  bool TakesOptions = true;
  for (std::size_t Index = 0; Index < Arguments.size(); ++Index) {
    const std::string& Argument = Arguments[Index];
    const auto Value = [&]() -> const std::string& {
      if (++Index == Arguments.size()) throw TUsageError{Argument + " wants a value"};
      return Arguments[Index];
    };
    if (!TakesOptions || !Argument.starts_with("--"))
      Files.push_back(Argument);
    else if (Argument == "--")
      TakesOptions = false;  // what follows are files, whatever they are called
    else if (Argument == "--help")
      Job.AsksHelp = true;
    else if (Argument == "--size")
      Job.Size = ParseSize(Value());
    else if (Argument == "--scale")
      Job.Scale = ParseScale(Value());
    else if (Argument == "--holder")
      Job.Holders.push_back(Value());
    else if (Argument == "--without-data")
      Job.WithData = false;
    else
      throw TUsageError{"there is no option " + Argument};
  }
  if (Job.AsksHelp) return Job;
  if (Files.size() != 2) throw TUsageError{"a source and a target are wanted"};
  Job.Source = Files[0];
  Job.Target = Files[1];
  TestJob(Job);
  return Job;
}

// --- The work -------------------------------------------------------------------------------------------------------

/// What the graphs cover of their page.
TRect BoxOf(const TChartDocument& Document) {
  TRect Box{TControl::MostExtent, TControl::MostExtent, -TControl::MostExtent, -TControl::MostExtent};
  for (const TZyCustomGraph* Graph : Document.Charts()) {
    const TRect One = Graph->BoundsRect();
    Box = {std::min(Box.Left, One.Left), std::min(Box.Top, One.Top), std::max(Box.Right, One.Right),
           std::max(Box.Bottom, One.Bottom)};
  }
  if (Box.Width() < 1 || Box.Height() < 1) throw EInvalidOperation("the chart has no extent");
  return Box;
}

/// Brings the graphs to a size together, in their own proportions to each other.
void Resize(TChartDocument& Document, const TSize& Size) {
  const TRect Box = BoxOf(Document);
  std::vector<TRect> Places;
  for (const TZyCustomGraph* Graph : Document.Charts()) Places.push_back(Graph->BoundsRect());
  const auto X = [&](int Place) { return static_cast<int>(std::int64_t{Place - Box.Left} * Size.Width / Box.Width()); };
  const auto Y = [&](int Place) {
    return static_cast<int>(std::int64_t{Place - Box.Top} * Size.Height / Box.Height());
  };
  Document.Page().SetBounds(0, 0, Size.Width, Size.Height);
  for (std::size_t Index = 0; Index < Places.size(); ++Index) {
    const TRect& Place = Places[Index];
    Document.Charts()[Index]->SetBounds(X(Place.Left), Y(Place.Top), X(Place.Right) - X(Place.Left),
                                        Y(Place.Bottom) - Y(Place.Top));
  }
}

/// As the window of the chart shows the graphs. Those that share an axis are one drawing, as they save themselves.
void SavePicture(TChartDocument& Document, const TJob& Job) {
  if (Job.Size) Resize(Document, *Job.Size);
  const TRect Box = BoxOf(Document);
  const auto Paint = [&](auto& Target) {
    Graphics Canvas(Target);
    Canvas.TranslateTransform(static_cast<float>(-Box.Left), static_cast<float>(-Box.Top));
    Document.Page().PaintTo(Canvas);
  };
  if (!IsDrawing(*Job.Picture)) {
    const float Scale = Job.Scale.value_or(1);
    const float Longest = Scale * static_cast<float>(std::max(Box.Width(), Box.Height()));
    if (Longest > MostPixels)
      throw ERangeError(Format("%d pixels are too many along a side", {static_cast<std::int64_t>(Longest)}));
    Bitmap Picture(Box.Width(), Box.Height(), Scale);
    Paint(Picture);
    return Picture.Save(Job.Target);
  }
  const std::vector<TZyCustomGraph*> Charts = Document.Charts();
  const auto* const First = dynamic_cast<const TZyGraph2D*>(Charts[0]);
  const std::size_t Together = First == nullptr ? 1 : First->StackedGraphs().size();
  if (Together == Charts.size()) return Charts[0]->SaveImage(Job.Target, *Job.Picture);
  Metafile Recording(static_cast<float>(Box.Width()), static_cast<float>(Box.Height()));
  Paint(Recording);
  Recording.Save(Job.Target);
}

/// Runs a step; what it throws is told, and true the answer.
template <class TStep>
bool Fails(const TStep& Step) {
  try {
    Step();
    return false;
  } catch (const std::bad_alloc&) {
    std::cerr << "convert: memory is short\n";
    return true;
  } catch (const std::exception& Error) {
    std::cerr << "convert: " << Error.what() << '\n';
    return true;
  }
}

TExitCode Run(const TJob& Job) {
  TChartDocument Document;
  const auto Read = [&] {
    for (const std::string& Name : Job.Holders) Document.AddHolder(Name);
    Document.Load(Job.Source);
  };
  if (Fails(Read)) return CannotRead;
  const auto Write = [&] {
    if (!Job.Picture) return Document.Save(Job.Target, Job.WithData);
    SavePicture(Document, Job);
  };
  return Fails(Write) ? CannotWrite : Done;
}

}  // namespace
}  // namespace zy::examples

int main(int ArgCount, char** Args) {
  using namespace zy::examples;
  TJob Job;
  try {
    Job = ParseArguments({Args + 1, Args + ArgCount});
  } catch (const TUsageError& Error) {
    std::cerr << "convert: " << Error.Text << "\nTry convert --help.\n";
    return WrongArguments;
  }
  if (Job.AsksHelp) {
    std::cout << Help;
    return Done;
  }
  char Name[] = "convert", Option[] = "-platform", Platform[] = "offscreen";  // no window, so no display either
  char* ToolkitArgs[] = {Name, Option, Platform, nullptr};
  int ToolkitArgCount = 3;
  const zy::TApplication Program(ToolkitArgCount, ToolkitArgs);
  return Run(Job);
}
