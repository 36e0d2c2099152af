#pragma once

#include "pages/data_management_model.h"

#include <QGroupBox>
#include <memory>

namespace Ui {
class DataManagementRow;
}

namespace velko {

// The numbers that a row's controls carry.
struct DataManagementIds {
    int pointerEdit;
    int allocateButton;
    int deleteButton;
    int setPointerButton;
    int cloneButton;
    int roomCombo;
    int sharedAnswer;
    int sharingRooms;
    int freeSpaceValue;
    int deleteUnusedButton;
    int joinButton;
};

// The group box of one kind of room data on the data management tab.
class DataManagementRow final : public QGroupBox {
    Q_OBJECT
public:
    DataManagementRow(DataManagementModel& model, const DataManagementModel::Row& row,
                      const DataManagementIds& ids, QWidget* parent = nullptr);
    ~DataManagementRow() override;

    // Fills the list of rooms (B), of which none is chosen.
    void setRooms(const EditorState& state);
    void refresh(bool directEditing);

signals:
    // A command was carried out or a pointer was typed: all rows are to be shown anew.
    void changed();

private:
    void setIds(const DataManagementIds& ids);
    void connectCommands();
    void connectPointer();

    DataManagementModel& m_model;
    RoomDataKind m_kind;
    std::unique_ptr<Ui::DataManagementRow> m_ui;
};

} // namespace velko
