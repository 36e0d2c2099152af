#pragma once

#include "app/page.h"
#include "pages/data_management_model.h"
#include "pages/data_management_row.h"

#include <array>
#include <memory>

namespace Ui {
class DataManagementPage;
}

namespace velko {

// The data management tab: a row of controls per kind of room data. Everything is read again from
// the image after each command and each typed digit of a pointer.
class DataManagementPage final : public Page {
    Q_OBJECT
public:
    DataManagementPage(EditorState& state, UserPrompt& prompt, QWidget* parent = nullptr);
    ~DataManagementPage() override;

    void setup() override;
    void refresh() override;

private:
    EditorState& m_state;
    DataManagementModel m_model;
    std::unique_ptr<Ui::DataManagementPage> m_ui;
    std::array<DataManagementRow*, DataManagementModel::kRows.size()> m_rows{}; // child widgets
};

} // namespace velko
