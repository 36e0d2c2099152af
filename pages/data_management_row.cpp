#include "pages/data_management_row.h"

#include "app/busy_cursor.h"
#include "app/text.h"
#include "app/ui_common.h"
#include "ui_data_management_row.h"

namespace velko {

DataManagementRow::DataManagementRow(DataManagementModel& model,
                                     const DataManagementModel::Row& row,
                                     const DataManagementIds& ids, QWidget* parent)
    : QGroupBox(parent)
    , m_model(model)
    , m_kind(row.kind)
    , m_ui(std::make_unique<Ui::DataManagementRow>())
{
    m_ui->setupUi(this);
    setTitle(row.caption);
    // Room for an address, however it is typed.
    const int digits = m_ui->pointerEdit->fontMetrics().horizontalAdvance("0x0000");
    m_ui->pointerEdit->setFixedWidth(m_ui->pointerEdit->minimumSizeHint().width() + digits);
    setIds(ids);
    connectCommands();
    connectPointer();
}

DataManagementRow::~DataManagementRow() = default;

void DataManagementRow::setIds(const DataManagementIds& ids)
{
    m_ui->pointerEdit->setProperty(kControlId, ids.pointerEdit);
    m_ui->allocateButton->setProperty(kControlId, ids.allocateButton);
    m_ui->deleteButton->setProperty(kControlId, ids.deleteButton);
    m_ui->setPointerButton->setProperty(kControlId, ids.setPointerButton);
    m_ui->cloneButton->setProperty(kControlId, ids.cloneButton);
    m_ui->roomCombo->setProperty(kControlId, ids.roomCombo);
    m_ui->sharedAnswer->setProperty(kControlId, ids.sharedAnswer);
    m_ui->sharingRooms->setProperty(kControlId, ids.sharingRooms);
    m_ui->freeSpaceValue->setProperty(kControlId, ids.freeSpaceValue);
    m_ui->deleteUnusedButton->setProperty(kControlId, ids.deleteUnusedButton);
    m_ui->joinButton->setProperty(kControlId, ids.joinButton);
}

void DataManagementRow::connectCommands()
{
    const auto connectCommand = [this](QPushButton* button, auto command) {
        connect(button, &QPushButton::clicked, this, [this, command] {
            command();
            emit changed();
        });
    };
    connectCommand(m_ui->allocateButton, [this] { m_model.allocateUniqueData(m_kind); });
    connectCommand(m_ui->deleteButton, [this] { m_model.deleteData(m_kind); });
    // With no room chosen the index is -1, the table entry before room 0.
    connectCommand(m_ui->setPointerButton,
                   [this] { m_model.setPointerToRoom(m_kind, m_ui->roomCombo->currentIndex()); });
    connectCommand(m_ui->cloneButton,
                   [this] { m_model.cloneDataOfRoom(m_kind, m_ui->roomCombo->currentIndex()); });
    connectCommand(m_ui->deleteUnusedButton, [this] {
        const BusyCursor busy;
        m_model.deleteUnusedData(m_kind);
    });
    connectCommand(m_ui->joinButton, [this] {
        const BusyCursor busy;
        m_model.joinIdenticalData(m_kind);
    });
}

void DataManagementRow::connectPointer()
{
    connect(m_ui->pointerEdit, &HexEdit::textChanged, this, [this] {
        if (m_ui->pointerEdit->settingText())
            return;
        m_model.setPointer(m_kind, m_ui->pointerEdit->getHex());
        emit changed();
    });
}

void DataManagementRow::setRooms(const EditorState& state)
{
    m_ui->roomCombo->setRooms(state);
}

void DataManagementRow::refresh(bool directEditing)
{
    m_ui->pointerEdit->setText(toQString(m_model.pointerText(m_kind)));
    const DataManagementModel::Sharing sharing = m_model.sharing(m_kind);
    m_ui->sharedAnswer->setText(toQString(sharing.answer));
    m_ui->sharingRooms->setText(toQString(sharing.rooms));
    m_ui->freeSpaceValue->setText(toQString(m_model.freeSpaceText(m_kind)));
    m_ui->pointerEdit->setReadOnly(!directEditing);
}

} // namespace velko
