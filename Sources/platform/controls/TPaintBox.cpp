#include "platform/controls/TPaintBox.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TPaintBox, TGraphicControl, Published<&TPaintBox::OnPaint, &TPaintBox::SetOnPaint>("OnPaint"),
             Republished("ParentFont Font"))
ZY_PUBLISHED(TImage, TGraphicControl, Published<&TImage::Center, &TImage::SetCenter>("Center", false))

TPaintBox::TPaintBox(TComponent* Owner) : TGraphicControl(Owner) { TPaintBox::SetBounds(0, 0, 105, 105); }

TPaintBox::~TPaintBox() { Destroying(); }

void TPaintBox::Paint(Graphics& Canvas) {
  if (const TPaintEvent Event = FOnPaint) Event(this, Canvas);
}

TImage::TImage(TComponent* Owner) : TGraphicControl(Owner) { TImage::SetBounds(0, 0, 105, 105); }

TImage::~TImage() { Destroying(); }

void TImage::SetPicture(const TBitmap& Value) {
  FPicture.Assign(&Value);
  Invalidate();
}

void TImage::SetCenter(bool Value) {
  FCenter = Value;
  Invalidate();
}

void TImage::Paint(Graphics& Canvas) {
  if (FPicture.Empty()) return;
  const auto Middle = [this](int Extent, int Inner) { return static_cast<float>(FCenter ? (Extent - Inner) / 2 : 0); };
  FPicture.Draw(Canvas, Middle(Width(), FPicture.Width()), Middle(Height(), FPicture.Height()));
}

}  // namespace zy
