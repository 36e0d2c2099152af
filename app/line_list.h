#pragma once

#include <QObject>
#include <QStringListModel>
#include <functional>
#include <string>
#include <vector>

class QListView;

namespace velko {

// The lines of a list view, of which the user selects one. Lines that change leave the list
// scrolled to where it is.
class LineList final : public QObject {
    Q_OBJECT
public:
    // The view must outlive the list.
    explicit LineList(QListView& view);

    void setLines(const std::vector<std::string>& lines);
    // Line -1, or another that there is not, is none.
    void select(int line);

    // `selected` is called with the line that the user selected, -1 for none. Lines that the
    // program selects, or that are selected because others went, are not told.
    void connectSelected(std::function<void(int line)> selected);

private:
    int selectedLine() const;

    QListView& m_view;
    QStringListModel m_lines;
    bool m_isChanging = false; // by the program
};

} // namespace velko
