#include "platform/controls/TPageControl.h"

#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

template class TWidgetOf<QTabWidget>;

ZY_PUBLISHED(TTabSheet, TWinControl, Published<&TTabSheet::Caption, &TTabSheet::SetCaption>("Caption", std::string()),
             Published<&TTabSheet::TabVisible, &TTabSheet::SetTabVisible>("TabVisible", true),
             Published<&TTabSheet::OnShow, &TTabSheet::SetOnShow>("OnShow"))
ZY_PUBLISHED(TPageControl, TWinControl,
             Published<&TPageControl::ActivePage, &TPageControl::SetActivePage>("ActivePage"),
             Published<&TPageControl::TabStop, &TPageControl::SetTabStop>("TabStop", true),
             Published<&TPageControl::OnChange, &TPageControl::SetOnChange>("OnChange"), Republished("ParentFont Font"))

// --- TTabSheet ------------------------------------------------------------------------------------------------------

TTabSheet::TTabSheet(TComponent* Owner) : TWinControl(Owner) {}

TTabSheet::~TTabSheet() { Destroying(); }

TPageControl* TTabSheet::PageControl() const { return dynamic_cast<TPageControl*>(Parent()); }

int TTabSheet::PageIndex() const {
  if (PageControl() == nullptr) return -1;
  const std::vector<TTabSheet*> All = PageControl()->Pages();
  return static_cast<int>(std::ranges::find(All, this) - All.begin());
}

void TTabSheet::SetCaption(const std::string& Value) {
  if (Value == FCaption) return;
  FCaption = Value;
  if (PageControl() != nullptr) PageControl()->ShowTab(*this);
  ApplyAccessibleName();
}

void TTabSheet::SetTabVisible(bool Value) {
  if (Value == FTabVisible) return;
  FTabVisible = Value;
  if (PageControl() != nullptr) PageControl()->ShowTab(*this);
}

/// The page control shows the page in front, and hides the others.
void TTabSheet::ApplyVisible() {
  if (PageControl() == nullptr) Inherited::ApplyVisible();
}

void TTabSheet::DoShow() {
  if (const TNotifyEvent Event = FOnShow) Event(this);
}

// --- TPageControl ---------------------------------------------------------------------------------------------------

TPageControl::TPageControl(TComponent* Owner) : TWidgetOf(Owner) {
  TPageControl::SetBounds(0, 0, 289, 193);
  SetTabStop(true);
}

TPageControl::~TPageControl() { Destroying(); }

void TPageControl::Configure(QTabWidget& Box) { Box.setUsesScrollButtons(true); }

void TPageControl::Listen(QTabWidget& Box) {
  // The tab bar tells of every change; a page that code brings to the front is noted before it does.
  On(Box, &QTabWidget::currentChanged, [this, &Box](int Index) {
    for (TTabSheet* Page : Pages()) {
      if (!Page->HasWidget() || Box.indexOf(Page->Widget()) != Index || Page == FActive) continue;
      const std::uint64_t Alive = LiveHandle();
      BringToTop(Page);
      if (FromLiveHandle(Alive) != nullptr) Change();
      return;
    }
  });
}

std::vector<TTabSheet*> TPageControl::Pages() const {
  std::vector<TTabSheet*> Result;
  for (TControl* Control : Controls())
    if (auto* const Page = dynamic_cast<TTabSheet*>(Control)) Result.push_back(Page);
  return Result;
}

void TPageControl::TakeWidget(TWinControl& Inner, QWidget& InnerWidget) {
  auto* const Page = dynamic_cast<TTabSheet*>(&Inner);
  if (Page == nullptr) return Inherited::TakeWidget(Inner, InnerWidget);
  With([&](QTabWidget& Box) {
    Box.insertTab(Page->PageIndex(), &InnerWidget, ToQString(Page->Caption()));
    Box.setTabVisible(Box.indexOf(&InnerWidget), Page->TabVisible());
    if (Page == FActive) Box.setCurrentWidget(&InnerWidget);
  });
  if (FActive == nullptr && Page->TabVisible()) FActive = Page;
}

void TPageControl::ShowTab(TTabSheet& Page) {
  With([&](QTabWidget& Box) {
    if (!Page.HasWidget()) return;
    const int Index = Box.indexOf(Page.Widget());
    Box.setTabText(Index, ToQString(Page.Caption()));
    Box.setTabVisible(Index, Page.TabVisible());
  });
  if (Page.TabVisible() || &Page != FActive) return;
  const std::vector<TTabSheet*> All = Pages();
  const auto Next = std::ranges::find_if(All, [](const TTabSheet* Each) { return Each->TabVisible(); });
  SetActivePage(Next == All.end() ? nullptr : *Next);
}

int TPageControl::ActivePageIndex() const {
  TTabSheet* const Page = ActivePage();
  return Page == nullptr ? -1 : Page->PageIndex();
}

/// Without a choice the first page with a tab is in front.
TTabSheet* TPageControl::ActivePage() const {
  if (FActive != nullptr && FActive->Parent() == this) return FActive;
  for (TTabSheet* Page : Pages())
    if (Page->TabVisible()) return Page;
  return nullptr;
}

void TPageControl::SetActivePageIndex(int Value) {
  const std::vector<TTabSheet*> All = Pages();
  if (Value >= 0 && Value < static_cast<int>(All.size())) SetActivePage(All[static_cast<std::size_t>(Value)]);
}

void TPageControl::SetActivePage(TTabSheet* Value) {
  if (Value == FActive || (Value != nullptr && !Value->TabVisible())) return;
  if (Value == nullptr || IsLoading()) {
    FActive = Value;
    return;
  }
  if (Value->PageControl() != this) return;
  BringToTop(Value);
}

void TPageControl::BringToTop(TTabSheet* Page) {
  FActive = Page;
  With([&](QTabWidget& Box) {
    if (Page->HasWidget()) Box.setCurrentWidget(Page->Widget());
  });
  Page->DoShow();
}

void TPageControl::Change() {
  if (const TNotifyEvent Event = FOnChange) Event(this);
}

}  // namespace zy
