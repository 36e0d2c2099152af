#pragma once

#include "app/page.h"
#include "pages/room_settings_model.h"

#include <memory>

namespace Ui {
class MiscellaneousPage;
}

namespace velko {

// The miscellaneous tab: the room's music, and what lies in the chambers of the neutral areas.
// Every change is in the ROM image at once.
class MiscellaneousPage final : public Page {
    Q_OBJECT
public:
    explicit MiscellaneousPage(EditorState& state, QWidget* parent = nullptr);
    ~MiscellaneousPage() override;

    void setup() override;
    void refresh() override;

private:
    void connectItem();
    void changeItem(void (RoomSettingsModel::*change)());
    void showItem();
    void showAddress();

    EditorState& m_state;
    RoomSettingsModel m_model;
    std::unique_ptr<Ui::MiscellaneousPage> m_ui;
};

} // namespace velko
