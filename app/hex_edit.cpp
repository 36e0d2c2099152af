#include "app/hex_edit.h"

#include "app/text.h"
#include "rom/number_text.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace velko {

void HexEdit::setText(const QString& text)
{
    const bool backwards = hasSelectedText() && cursorPosition() == selectionStart();
    const auto length = static_cast<int>(text.length());
    const int start = std::min(hasSelectedText() ? selectionStart() : cursorPosition(), length);
    const int end = std::min(hasSelectedText() ? selectionEnd() : cursorPosition(), length);

    const QScopedValueRollback setting(m_settingText, true);
    QLineEdit::setText(text);
    // A selection is set from its fixed end to its caret; the edit scrolls to the caret.
    if (start == end)
        setCursorPosition(start);
    else if (backwards)
        setSelection(end, start - end);
    else
        setSelection(start, end - start);
}

void HexEdit::setHex(std::uint32_t value)
{
    setText(toQString(hexText(value)));
}

QString HexEdit::getText(int length) const
{
    const QString whole = text();
    const auto lineEnd =
        std::find_if(whole.begin(), whole.end(), [](QChar c) { return c == '\n' || c == '\r'; });
    const auto firstLine = static_cast<int>(lineEnd - whole.begin());
    return whole.left(std::min({firstLine, kLongestText, std::max(0, length)}));
}

std::uint32_t HexEdit::getHex() const
{
    return parseHex(getText().toStdString());
}

} // namespace velko
