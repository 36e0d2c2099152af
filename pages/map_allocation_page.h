#pragma once

#include "app/page.h"
#include "pages/map_allocation_model.h"
#include "rom/user_prompt.h"

#include <QStringListModel>
#include <memory>

namespace Ui {
class MapAllocationPage;
}

namespace velko {

class HexEdit;

// The map allocation tab: the list of the screens that the room is built from, and the selected
// one as a picture, as an address and as a number. Every change is in the ROM image at once. A
// box keeps the user's text while it is being typed; when it is left it shows what was made of it.
class MapAllocationPage final : public Page {
    Q_OBJECT
public:
    MapAllocationPage(EditorState& state, UserPrompt& prompt, QWidget* parent = nullptr);
    ~MapAllocationPage() override;

    void setup() override;
    // For another room: the selection goes to where it starts.
    void refresh() override;

private:
    void connectButtons();
    void connectBox(HexEdit& box, void (MapAllocationModel::*write)(std::uint32_t),
                    void (MapAllocationPage::*showNumber)());
    void insertAfterSelected();

    // After the list changed by anything but a box or by one, whose text is left alone.
    void showChange(const HexEdit* typedBox = nullptr);
    void showList();
    // The entry that is selected, in all but the list.
    void showSelection(const HexEdit* typedBox = nullptr);
    void showAddress();
    void showIndex();

    MapAllocationModel m_model;
    UserPrompt& m_prompt;
    QStringListModel m_lines;
    std::unique_ptr<Ui::MapAllocationPage> m_ui;
};

} // namespace velko
