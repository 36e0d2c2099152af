#include "app/line_list.h"

#include "app/text.h"

#include <QListView>
#include <QScopedValueRollback>
#include <utility>

namespace velko {

LineList::LineList(QListView& view) : m_view(view)
{
    m_view.setModel(&m_lines);
}

void LineList::setLines(const std::vector<std::string>& lines)
{
    const QScopedValueRollback changing(m_isChanging, true);
    const auto count = static_cast<int>(lines.size());
    if (m_lines.rowCount() > count)
        m_lines.removeRows(count, m_lines.rowCount() - count);
    else if (m_lines.rowCount() < count)
        m_lines.insertRows(m_lines.rowCount(), count - m_lines.rowCount());
    for (int i = 0; i < count; ++i) {
        const QString line = toQString(lines[static_cast<std::size_t>(i)]);
        if (const QModelIndex index = m_lines.index(i); index.data().toString() != line)
            m_lines.setData(index, line);
    }
}

void LineList::select(int line)
{
    const QScopedValueRollback changing(m_isChanging, true);
    const QModelIndex index = m_lines.index(line, 0);
    if (!index.isValid())
        m_view.selectionModel()->clear();
    else if (!m_view.selectionModel()->isSelected(index))
        m_view.setCurrentIndex(index);
}

void LineList::connectSelected(std::function<void(int line)> selected)
{
    connect(m_view.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, selected = std::move(selected)] {
                if (!m_isChanging)
                    selected(selectedLine());
            });
}

int LineList::selectedLine() const
{
    const QModelIndexList lines = m_view.selectionModel()->selectedIndexes();
    return lines.isEmpty() ? -1 : lines.front().row();
}

} // namespace velko
