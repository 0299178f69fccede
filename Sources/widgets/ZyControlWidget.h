#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zy {

class TComponent;
class TDataModule;
class TPersistent;
class TWinControl;

/// Base of the library's controls as widgets of the toolkit: an ordinary widget with a control in it, for layouts,
/// forms of the designer, signals and slots.
///
/// The control belongs to the widget and lives as long. Each property that it publishes is one of the widget too, by
/// its path: `Chart->setProperty("MajorGridVertical.Visible", true)`. Forms of the designer store them so. A path that
/// leads nowhere is a dynamic property like any other.
class ZyControlWidget : public QWidget {
  Q_OBJECT

 public:
  ~ZyControlWidget() override;

  /// What owns the control and what belongs to it; more find their place here, and die with the widget:
  /// `new TZyDoubleVector(&Chart->Owner())`. Its name, by which stored charts and property links refer to what it owns,
  /// is that of the widget (objectName) as far as that is a name and free, else one that no other has.
  TComponent& Owner() const;

  /// Paths of all that can be edited.
  virtual std::vector<std::string> PropertyPaths() const;
  /// The present value at a path, invalid for none: colours as QColor, values of enumerations by their names.
  Q_INVOKABLE QVariant PropertyAt(const QString& Path) const;
  /// Writes it; false for a path that leads nowhere, or a value that does not fit, which errorOccurred tells.
  Q_INVOKABLE bool SetPropertyAt(const QString& Path, const QVariant& Value);
  /// Whether the value counts now, where it is another one than a new control has: a font that is the parent's, for
  /// one, does not.
  bool IsStoredAt(const QString& Path) const;

  /// For the designer: gives an empty control something to show, and has parts be there, seen or not, so that their
  /// properties can be edited.
  virtual void ShowSamples() {}
  virtual void MakeParts() {}
  /// Whether a property is a place that the mouse gives, and forms store in any case.
  virtual bool IsPlace(const QString& /*Path*/) const { return false; }
  /// The chart widget that gives this one its look, null for none.
  virtual ZyControlWidget* LooksLike() const { return nullptr; }

 signals:
  /// An exception in an event or a paint of the control, or a property that could not be set. While nothing is
  /// connected it goes where the application has its exceptions.
  void errorOccurred(const QString& Text);

 protected:
  explicit ZyControlWidget(QWidget* Parent);
  /// Takes the control, which Owner owns, and shows it.
  void Show(TWinControl& Value);
  TWinControl& Shown() const { return *FControl; }
  /// For destructors of heirs whose control tells them of its end: frees all that Owner owns.
  void FreeOwned();
  /// Components whose properties are among those of the control, by their paths.
  virtual std::vector<std::string> Parts() const { return {}; }
  /// The object from which a path counts, whose name is then taken off it; null where it is not there and not made.
  virtual TPersistent* RootOf(std::string& Path, bool Make);
  bool event(QEvent* Event) override;
  /// The toolkit carries no exception.
  void Guarded(const std::function<void()>& Proc);
  /// Whether somebody hears it.
  bool TellError(const char* Text);

 private:
  void TakeName();

  std::unique_ptr<TDataModule> FOwner;
  TWinControl* FControl = nullptr;  // of the owner
};

}  // namespace zy
