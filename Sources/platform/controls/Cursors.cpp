#include "platform/controls/Cursors.h"

#include <QCursor>
#include <QGuiApplication>
#include <utility>

namespace zy {
namespace {

TCursor PresentCursor = crDefault;

constexpr std::pair<TCursor, Qt::CursorShape> Shapes[] = {
    {crNone, Qt::BlankCursor},         {crArrow, Qt::ArrowCursor},        {crCross, Qt::CrossCursor},
    {crIBeam, Qt::IBeamCursor},        {crSizeNESW, Qt::SizeBDiagCursor}, {crSizeNS, Qt::SizeVerCursor},
    {crSizeNWSE, Qt::SizeFDiagCursor}, {crSizeWE, Qt::SizeHorCursor},     {crUpArrow, Qt::UpArrowCursor},
    {crHourGlass, Qt::WaitCursor},     {crDrag, Qt::DragMoveCursor},      {crNoDrop, Qt::ForbiddenCursor},
    {crHSplit, Qt::SplitHCursor},      {crVSplit, Qt::SplitVCursor},      {crNo, Qt::ForbiddenCursor},
    {crAppStart, Qt::BusyCursor},      {crHelp, Qt::WhatsThisCursor},     {crHandPoint, Qt::PointingHandCursor},
    {crSizeAll, Qt::SizeAllCursor}};

}  // namespace

TCursor ApplicationCursor() { return PresentCursor; }

void SetApplicationCursor(TCursor Value) {
  const TCursor Old = std::exchange(PresentCursor, Value);
  if (Old == Value || qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) return;
  if (Value == crDefault) {
    QGuiApplication::restoreOverrideCursor();
  } else if (QGuiApplication::overrideCursor() == nullptr || Old == crDefault) {
    QGuiApplication::setOverrideCursor(ToolkitCursor(Value));
  } else {
    QGuiApplication::changeOverrideCursor(ToolkitCursor(Value));
  }
}

QCursor ToolkitCursor(TCursor Value) {
  for (const auto& [Number, Shape] : Shapes)
    if (Number == Value) return Shape;
  return Qt::ArrowCursor;
}

}  // namespace zy
