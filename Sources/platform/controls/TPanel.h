#pragma once

#include <functional>
#include <utility>

#include "platform/controls/TCustomPanel.h"

namespace zy {

using TPaintEvent = std::function<void(TObject* Sender, Graphics& Canvas)>;

/// A box for other controls, with all its properties published. What lies behind shows through; OnPaint draws on it.
class TPanel : public TCustomPanel {
  ZY_CLASS(TPanel, TCustomPanel)
  explicit TPanel(TComponent* Owner = nullptr);
  ~TPanel() override;

  const TPaintEvent& OnPaint() const { return FOnPaint; }
  void SetOnPaint(TPaintEvent Value) { FOnPaint = std::move(Value); }

 protected:
  void Paint(Graphics& Canvas) override;

 private:
  TPaintEvent FOnPaint;
};

}  // namespace zy
