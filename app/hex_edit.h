#pragma once

#include <QLineEdit>
#include <cstdint>

namespace velko {

// An edit box for a hexadecimal number, which both the user and the program change.
class HexEdit : public QLineEdit {
    Q_OBJECT
public:
    static constexpr int kLongestText = 256; // characters that getText reads

    using QLineEdit::QLineEdit;

    // True only while the program itself changes the text: whoever follows textChanged must
    // ignore the notifications that arrive meanwhile.
    bool settingText() const { return m_settingText; }

    // Replaces the text and leaves the selection, or the caret, where it was.
    void setText(const QString& text = {});
    // The number in lower-case hexadecimal, without prefix or padding.
    void setHex(std::uint32_t value);

    // The first line, at most kLongestText and at most `length` characters of it.
    QString getText(int length = kLongestText) const;
    // The number that the text spells. Characters that are no hexadecimal digits are skipped; an
    // empty box gives 0.
    std::uint32_t getHex() const;

private:
    bool m_settingText = false;
};

} // namespace velko
