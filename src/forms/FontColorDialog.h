#pragma once

// The font dialog of the report fonts dialogs (`CommonDialog1`): a face among the fonts
// this machine has, a size in points that keeps halves and tenths (10.5 stays 10.5), bold,
// italic, underline and strikeout, and a colour from the sixteen standard colours or any
// other through "Custom...". Preset it with currentFont and color, run it, and read them
// back when it was accepted.

#include <QColor>
#include <QDialog>
#include <QFont>
#include <memory>

namespace Ui {
class CommonDialog1;
}

namespace bravcpl5 {

class FontColorDialog : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(QFont currentFont READ currentFont WRITE setCurrentFont)
    Q_PROPERTY(QColor color READ color WRITE setColor)

public:
    explicit FontColorDialog(QWidget *parent = nullptr);
    ~FontColorDialog() override;

    // The face, the size as typed (fractions kept) and the four effects.
    QFont currentFont() const;
    void setCurrentFont(const QFont &font);
    QColor color() const;
    void setColor(const QColor &color);

private:
    void colorChosen(int index);
    void updateSample();

    std::unique_ptr<Ui::CommonDialog1> ui;
    float m_size = 10;   // points, as last typed or chosen
    int m_lastColor = 0; // the entry to return to when "Custom..." is cancelled
};

} // namespace bravcpl5
