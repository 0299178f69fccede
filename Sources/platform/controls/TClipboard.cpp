#include "platform/controls/TClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <memory>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Metafile.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/TStream.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

QClipboard& Toolkit() {
  if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
    throw EInvalidOperation(LoadResString(_sClipboardNeedsApplication));
  return *QGuiApplication::clipboard();
}

/// A drawing or a picture as a file.
template <class TPicture>
QByteArray AsFile(const TPicture& Picture, std::string_view FormatName) {
  TMemoryStream Stream;
  Picture.Save(Stream, FormatName);
  const auto Bytes = Stream.Bytes();
  return {reinterpret_cast<const char*>(Bytes.data()), static_cast<qsizetype>(Bytes.size())};
}

/// Programs that know no alpha would show what is transparent in black.
QImage OnWhite(const QImage& Picture) {
  QImage Result(Picture.size(), QImage::Format_RGB32);
  Result.setDevicePixelRatio(Picture.devicePixelRatio());
  Result.fill(Qt::white);
  QPainter(&Result).drawImage(0, 0, Picture);
  return Result;
}

}  // namespace

void TClipboard::SetPicture(const Metafile& Drawing, const Bitmap& Picture) {
  QClipboard& Target = Toolkit();
  auto Content = std::make_unique<QMimeData>();
  const QByteArray Emf = AsFile(Drawing, "EMF");
  for (const char* Name : {"image/x-emf", "image/emf", "application/x-openoffice-emf;windows_formatname=\"Image EMF\""})
    Content->setData(Name, Emf);
  Content->setData("image/svg+xml", AsFile(Drawing, "SVG"));
  Content->setData("application/pdf", AsFile(Drawing, "PDF"));
  Content->setData("image/png", AsFile(Picture, "PNG"));
  Content->setImageData(OnWhite(Picture.ToQt()));
  Target.setMimeData(Content.release());
}

std::string TClipboard::AsText() const { return Toolkit().text().toStdString(); }

void TClipboard::SetAsText(std::string_view Value) { Toolkit().setText(ToQString(Value)); }

bool TClipboard::HasFormat(std::string_view MimeType) const {
  const QMimeData* const Content = Toolkit().mimeData();
  return Content != nullptr && Content->hasFormat(ToQString(MimeType));
}

std::string TClipboard::AsBytes(std::string_view MimeType) const {
  const QMimeData* const Content = Toolkit().mimeData();
  return Content != nullptr ? Content->data(ToQString(MimeType)).toStdString() : std::string();
}

void TClipboard::Clear() { Toolkit().clear(); }

TClipboard& Clipboard() {
  static TClipboard Shared;
  return Shared;
}

}  // namespace zy
