#include "widgets/Binding.h"

#include <models/OpenDocument.h>
#include <models/ParameterModel.h>
#include <widgets/BoundControl_p.h>

#include <QCoreApplication>
#include <QPointer>
#include <QRegularExpression>
#include <QWidget>

#include <memory>
#include <utility>
#include <vector>

namespace KORMAK {

namespace {

using Widgets::BoundControl;

const QString &prefix()
{
    static const QString text = QStringLiteral("kormak_");
    return text;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::Binding", text);
}

/// The parameter that a control is called after: by its name, else by the only one that differs from it in
/// characters that names of objects seldom have. Empty when there is none.
QString parameterCalled(const QString &called, const ParameterModel &model)
{
    if (model.GetRow(called) >= 0)
        return called;
    QString found;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString name = model.index(row, 0).data(ParameterModel::UniqueNameRole).toString();
        QString plain = name;
        for (QChar &character : plain) {
            if (!character.isLetterOrNumber())
                character = QLatin1Char('_');
        }
        if (plain != called)
            continue;
        if (!found.isEmpty())
            return {};
        found = name;
    }
    return found;
}

/// All that is connected in a widget.
class Bindings : public QObject {
public:
    Bindings(QWidget &parent, OpenDocument &receiver) : QObject(&parent), document(&receiver), model(receiver)
    {
        setObjectName(name());
        // After the model has heard of it.
        connect(&receiver, &OpenDocument::Replaced, this, [this] { refresh(BoundControl::Typed::Dropped); });
        connect(&receiver, &OpenDocument::Changed, this, [this] { refresh(BoundControl::Typed::Kept); });
        connect(&receiver, &OpenDocument::OpenEditsWanted, this,
                [this] { forEach([](BoundControl &control) { control.takeOpen(); }); });
        connect(&receiver, &QObject::destroyed, this, [this] { retire(); });
    }

    [[nodiscard]] static QString name() { return QStringLiteral("kormakBindings"); }

    [[nodiscard]] QStringList add(QWidget &parent)
    {
        QStringList messages;
        const auto children = parent.findChildren<QWidget *>(QRegularExpression(QLatin1Char('^') + prefix()),
                                                             Qt::FindChildrenRecursively);
        std::vector<const BoundControl *> made; // of each child
        for (QWidget *const child : children) {
            const QString called = child->objectName().mid(prefix().size());
            const QString parameter = parameterCalled(called, model);
            auto control = Widgets::makeBoundControl(
                *child, {model, *document, parameter.isEmpty() ? called : parameter, isRefreshing});
            made.push_back(control.get());
            if (control)
                controls.push_back(std::move(control));
        }
        refresh(BoundControl::Typed::Dropped);
        for (std::size_t i = 0; i < made.size(); ++i) {
            const QWidget &child = *children.at(static_cast<int>(i));
            const QString reason = made[i] ? made[i]->whyNot()
                                           : translated("a %1 cannot show a parameter")
                                                 .arg(QString::fromLatin1(child.metaObject()->className()));
            if (!reason.isEmpty())
                messages += child.objectName() + QStringLiteral(": ") + reason;
        }
        return messages;
    }

    /// Connects nothing any more. It may be called while a control is on its way through the document.
    void retire()
    {
        setObjectName({});
        if (document)
            disconnect(document, nullptr, this, nullptr);
        for (const auto &control : controls)
            control->release();
        deleteLater();
    }

private:
    /// What hears of \a action may destroy controls, and these bindings.
    template <class Action>
    void forEach(Action action)
    {
        std::vector<QPointer<BoundControl>> all;
        for (const auto &control : controls)
            all.emplace_back(control.get());
        for (const auto &control : all) {
            if (control)
                action(*control);
        }
    }

    void refresh(BoundControl::Typed typed)
    {
        isRefreshing = true;
        for (const auto &control : controls)
            control->refresh(typed);
        isRefreshing = false;
        forEach([](BoundControl &control) { control.tellDropped(); });
    }

    QPointer<OpenDocument> document;
    ParameterModel model;
    std::vector<std::unique_ptr<BoundControl>> controls;
    bool isRefreshing = false;
};

} // namespace

QStringList Bind(QWidget &parent, OpenDocument &receiver)
{
    if (auto *const former = parent.findChild<QObject *>(Bindings::name(), Qt::FindDirectChildrenOnly))
        static_cast<Bindings *>(former)->retire();
    auto *const bindings = new Bindings(parent, receiver);
    return bindings->add(parent);
}

} // namespace KORMAK
