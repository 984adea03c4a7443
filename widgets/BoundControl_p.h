// Not installed. A control that is connected with a parameter, whatever its class.
#ifndef KORMAK_WIDGETS_BOUNDCONTROL_P_H
#define KORMAK_WIDGETS_BOUNDCONTROL_P_H

#include <kormak/Parameter.h>
#include <models/OpenDocument.h>
#include <models/ParameterModel.h>
#include <widgets/ControlMark_p.h>
#include <widgets/NumberFormat_p.h>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <initializer_list>
#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace KORMAK::Widgets {

/// What a control is connected with.
struct BoundTo {
    ParameterModel &model;
    OpenDocument &document;
    QString parameter; ///< its unique name
    const bool &isRefreshing; ///< while all controls are shown what the document says
};

/// Shows the value of its parameter, and sets what people do there. While it is shown something, it sets
/// nothing.
class BoundControl : public QObject {
public:
    /// What becomes of what is typed and not taken yet.
    enum class Typed { Kept, Dropped };

    BoundControl(QWidget &control, const BoundTo &link);

    /// Shows what the document says now. What was typed for a parameter that can be set no longer is dropped.
    void refresh(Typed typed = Typed::Kept);
    /// Why it shows no value, for people; empty when it does.
    [[nodiscard]] QString whyNot() const { return unfitness; }
    /// Tells of what was dropped, if it was.
    void tellDropped();
    /// Takes what was typed, or tells why not.
    void takeOpen();
    /// Leaves the control as it was found, except for its value.
    void release();

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// Why this class of control is nothing for \a found; empty when it is.
    [[nodiscard]] virtual QString whyUnfit(const Parameter &found) const = 0;
    /// Shows the value.
    /// \return why it cannot be shown as it is; empty when it is shown
    [[nodiscard]] virtual QString show(const Parameter &found) = 0;
    /// Whether something was typed that is not taken yet.
    [[nodiscard]] virtual bool isOpen() const { return false; }
    /// What was typed.
    [[nodiscard]] virtual QString openText() const { return {}; }
    /// Forgets what was typed.
    virtual void discard() { }
    /// Takes what was typed.
    /// \return why it is no value, and then it stays; empty when it is
    [[nodiscard]] virtual QString take() { return {}; }
    /// The document does not take what was set.
    virtual void refused(const QString &reason);
    /// Events of the control and what is in it. \return true when it goes no further
    virtual bool filter(QEvent & /*event*/) { return false; }
    /// Whether the control tells by itself what is wrong.
    [[nodiscard]] virtual bool marksItself() const { return false; }

    /// What people did, unless it is shown to them at the moment.
    void change(const QVariant &wanted);
    /// Tells that what was typed is not taken, and why.
    void refuse(const QString &reason);
    /// Shows what is wrong with what stands there now.
    void updateProblem();
    /// Marks what stands there as refused.
    void markRefused(const QString &reason);

    [[nodiscard]] const Parameter *parameter() const;
    [[nodiscard]] QModelIndex index() const;
    [[nodiscard]] QVariant value() const { return index().data(ParameterModel::ValueRole); }
    [[nodiscard]] QString notes() const;
    [[nodiscard]] NumberFormat formatOf(const Parameter &found) const;
    [[nodiscard]] QString unfit(const Parameter &found) const;
    [[nodiscard]] QString unfitUnless(const Parameter &found,
                                      std::initializer_list<ParameterType> types) const;
    [[nodiscard]] QString cannotBeShown(const Parameter &found) const;

private:
    /// What is wrong, for people.
    struct Problem {
        ValueMark mark;
        QString text;
    };

    [[nodiscard]] Problem problem(const Parameter &found) const;

    QPointer<QWidget> widget;
    QPointer<OpenDocument> document;
    ParameterModel &model;
    const bool &isRefreshing;
    QString parameterName;
    ParameterType shownType = ParameterType::Invalid;
    QString path; ///< of the value
    QString ownToolTip;
    ControlMark mark;
    QString unfitness;
    QString refusal; ///< of what was typed; empty: nothing was refused
    QString dropped; ///< what is to be told
    bool isShowing = false;
};

/// \a control as one that is connected; null when its class cannot be. Its value is shown by refresh().
[[nodiscard]] std::unique_ptr<BoundControl> makeBoundControl(QWidget &control, const BoundTo &link);

} // namespace KORMAK::Widgets

#endif
