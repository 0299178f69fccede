#pragma once

#include <utility>

#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TPanel.h"
#include "platform/drawing/TBitmap.h"

namespace zy {

/// A part of its parent that OnPaint draws. 105 by 105 pixels at first.
class TPaintBox : public TGraphicControl {
  ZY_CLASS(TPaintBox, TGraphicControl)
  explicit TPaintBox(TComponent* Owner = nullptr);
  ~TPaintBox() override;

  const TPaintEvent& OnPaint() const { return FOnPaint; }
  void SetOnPaint(TPaintEvent Value) { FOnPaint = std::move(Value); }

 protected:
  void Paint(Graphics& Canvas) override;

 private:
  TPaintEvent FOnPaint;
};

/// A picture in its parent, with its corner at that of the control or in the middle. 105 by 105 pixels at first.
class TImage : public TGraphicControl {
  ZY_CLASS(TImage, TGraphicControl)
  explicit TImage(TComponent* Owner = nullptr);
  ~TImage() override;

  TBitmap& Picture() { return FPicture; }
  void SetPicture(const TBitmap& Value);
  bool Center() const { return FCenter; }
  void SetCenter(bool Value);

 protected:
  void Paint(Graphics& Canvas) override;

 private:
  TBitmap FPicture;
  bool FCenter = false;
};

}  // namespace zy
