#include "widgets/ProseEdit_p.h"

#include <widgets/TextSize_p.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

namespace KORMAK::Widgets {

namespace {

constexpr int MostLines = 8; ///< that are seen without scrolling

} // namespace

ProseEdit::ProseEdit(QWidget *parent) : QPlainTextEdit(parent)
{
    // As lines, beside which it stands, have it.
    constexpr int Beside = 2;
    constexpr int Above = 1;
    document()->setDocumentMargin(Beside);
    setViewportMargins(0, Above, 0, Above);
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { fit(); });
    fit();
}

QString ProseEdit::GetText() const
{
    // toPlainText() would make ordinary blanks of those that do not break.
    return document()->toRawText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

void ProseEdit::SetText(const QString &newText)
{
    text = newText;
    if (GetText() != newText)
        setPlainText(newText);
}

int ProseEdit::lines() const
{
    int count = 0;
    for (QTextBlock block = document()->begin(); block.isValid() && count <= MostLines; block = block.next())
        count += std::max(1, block.layout()->lineCount());
    return std::max(1, count);
}

QSize ProseEdit::sizeHint() const
{
    constexpr int Characters = 40;
    return {sizeOfText(*this, Characters, 1).width(), heightOf(std::min(lines(), MostLines))};
}

QSize ProseEdit::minimumSizeHint() const
{
    constexpr int Characters = 12;
    return {sizeOfText(*this, Characters, 1).width(), heightOf(1)};
}

int ProseEdit::heightOf(int lines) const
{
    const int frame = 2 * frameWidth();
    const int margin = static_cast<int>(2 * document()->documentMargin());
    const QMargins around = viewportMargins();
    return sizeOfText(*this, 1, lines).height() + frame + margin + around.top() + around.bottom();
}

void ProseEdit::fit()
{
    setVerticalScrollBarPolicy(lines() > MostLines ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    const int height = sizeHint().height();
    if (minimumHeight() != height || maximumHeight() != height)
        setFixedHeight(height);
}

void ProseEdit::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fit();
}

bool ProseEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape
        && GetText() != text) {
        event->accept();
        return true;
    }
    return QPlainTextEdit::event(event);
}

void ProseEdit::focusOutEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT Finished();
}

void ProseEdit::insertFromMimeData(const QMimeData *source)
{
    insertPlainText(source->text()); // without formats
}

void ProseEdit::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && (event->modifiers() & Qt::ShiftModifier)) {
        if (!isReadOnly())
            textCursor().insertBlock();
        ensureCursorVisible();
    } else if (isEnter) {
        Q_EMIT Finished();
    } else if (event->key() == Qt::Key_Escape && GetText() != text) {
        Q_EMIT GivenUp();
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void ProseEdit::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    fit();
}

void ProseEdit::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QPlainTextEdit::wheelEvent(event);
    else
        event->ignore();
}

} // namespace KORMAK::Widgets
