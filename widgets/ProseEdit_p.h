// Not installed. A text of one or more lines, as high as it needs.
#ifndef KORMAK_WIDGETS_PROSEEDIT_P_H
#define KORMAK_WIDGETS_PROSEEDIT_P_H

#include <QPlainTextEdit>
#include <QString>

namespace KORMAK::Widgets {

/// Enter takes the text, Enter with Shift begins a line, Tab goes on to the next control.
class ProseEdit : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit ProseEdit(QWidget *parent = nullptr);

    /// Lines end with a line feed.
    [[nodiscard]] QString GetText() const;
    void SetText(const QString &text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// It is to be taken.
    void Finished();
    /// What was typed is to be forgotten.
    void GivenUp();

protected:
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    [[nodiscard]] int lines() const;
    [[nodiscard]] int heightOf(int lines) const;
    void fit();

    QString text; ///< that was set
};

} // namespace KORMAK::Widgets

#endif
