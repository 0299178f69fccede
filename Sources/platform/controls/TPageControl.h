#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/controls/TWidgetOf.h"
#include "platform/framework/TRef.h"

class QTabWidget;

namespace zy {

extern template class TWidgetOf<QTabWidget>;

class TPageControl;

/// A page of a page control: its parent. It holds the controls of the page.
class TTabSheet : public TWinControl {
  ZY_CLASS(TTabSheet, TWinControl)
  explicit TTabSheet(TComponent* Owner = nullptr);
  ~TTabSheet() override;

  /// Text of the tab.
  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value);
  /// Null without one.
  TPageControl* PageControl() const;
  /// Place among the pages, -1 without a page control.
  int PageIndex() const;
  /// Whether the tab is to be seen. A page without a tab is not shown.
  bool TabVisible() const { return FTabVisible; }
  void SetTabVisible(bool Value);
  /// Runs when the page comes to the front.
  const TNotifyEvent& OnShow() const { return FOnShow; }
  void SetOnShow(TNotifyEvent Value) { FOnShow = std::move(Value); }

 protected:
  void ApplyVisible() override;

 private:
  friend class TPageControl;
  void DoShow();

  std::string FCaption;
  bool FTabVisible = true;
  TNotifyEvent FOnShow;
};

/// Pages of which one is in front, chosen by tabs. 289 by 193 pixels at first.
class TPageControl : public TWidgetOf<QTabWidget> {
  ZY_CLASS(TPageControl, TWinControl)
  explicit TPageControl(TComponent* Owner = nullptr);
  ~TPageControl() override;

  /// In the order of the tabs, hidden ones included.
  std::vector<TTabSheet*> Pages() const;
  /// The page in front, -1 for none. Pages without a tab cannot be.
  int ActivePageIndex() const;
  void SetActivePageIndex(int Value);
  TTabSheet* ActivePage() const;
  void SetActivePage(TTabSheet* Value);

  /// Runs when the user brought another page to the front.
  const TNotifyEvent& OnChange() const { return FOnChange; }
  void SetOnChange(TNotifyEvent Value) { FOnChange = std::move(Value); }

 protected:
  virtual void Change();
  void Configure(QTabWidget& Box) override;
  void Listen(QTabWidget& Box) override;
  void TakeWidget(TWinControl& Inner, QWidget& InnerWidget) override;

 private:
  friend class TTabSheet;
  void ShowTab(TTabSheet& Page);
  void BringToTop(TTabSheet* Page);

  TRef<TTabSheet> FActive{this};
  TNotifyEvent FOnChange;
};

}  // namespace zy
