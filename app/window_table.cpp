#include "app/window_table.h"

namespace velko {

namespace {

class EmptyPage : public Page {
public:
    explicit EmptyPage(QWidget* parent) : Page(parent) { }
    void refresh() override { }
};

Page* makeEmptyPage(const WindowContext&, QWidget* parent)
{
    return new EmptyPage(parent);
}

} // namespace

WindowTable editorWindows()
{
    return {PageTable{{
                {"Map allocation ", makeEmptyPage},
                {"Map layout ", makeEmptyPage},
                {"Map editing ", makeEmptyPage},
                {"Door placement ", makeEmptyPage},
                {"Unit placement ", makeEmptyPage},
                {"Tile allocation ", makeEmptyPage},
                {"Palette ", makeEmptyPage},
                {"Miscellaneous ", makeEmptyPage},
                {"Data management ", makeEmptyPage},
            }},
            ToolTable{}};
}

} // namespace velko
