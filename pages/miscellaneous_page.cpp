#include "pages/miscellaneous_page.h"

#include "app/text.h"
#include "ui_miscellaneous_page.h"

namespace velko {

MiscellaneousPage::MiscellaneousPage(EditorState& state, QWidget* parent)
    : Page(parent), m_state(state), m_model(state), m_ui(std::make_unique<Ui::MiscellaneousPage>())
{
    m_ui->setupUi(this);
    // Room for an address, however it is typed.
    HexEdit& box = *m_ui->addressEdit;
    box.setFixedWidth(box.minimumSizeHint().width()
                      + box.fontMetrics().horizontalAdvance("0x0000"));
}

MiscellaneousPage::~MiscellaneousPage()
{
    // While the widgets go, the box may lose the focus, which ends its editing.
    m_ui->addressEdit->disconnect(this);
}

void MiscellaneousPage::setup()
{
    m_ui->musicCombo->setNames(m_state.names.music);
    m_ui->itemCombo->setNames(m_state.names.items);
    connect(m_ui->musicCombo, &QComboBox::activated, this, [this](int number) {
        m_model.setMusic(static_cast<std::uint8_t>(number));
        refresh();
    });
    connectItem();
}

void MiscellaneousPage::refresh()
{
    m_ui->itemGroup->setTitle(toQString(m_model.chamberTitle()));
    m_ui->musicCombo->setCurrentIndex(m_model.music());
    showItem();
    showAddress();
}

void MiscellaneousPage::connectItem()
{
    connect(m_ui->itemCheck, &QCheckBox::clicked, this, [this](bool checked) {
        changeItem(checked ? &RoomSettingsModel::addItem : &RoomSettingsModel::removeItem);
    });
    connect(m_ui->itemCombo, &QComboBox::activated, this, [this](int number) {
        m_model.setItem(static_cast<std::uint8_t>(number));
        refresh();
    });
    connect(m_ui->addressButton, &QPushButton::clicked, this,
            [this] { changeItem(&RoomSettingsModel::takeItemAddress); });

    HexEdit& box = *m_ui->addressEdit;
    connect(&box, &HexEdit::textChanged, this, [this, &box] {
        if (box.settingText())
            return;
        const std::uint32_t typed = box.getHex();
        m_model.setSpriteAddress(typed);
        showItem();
        // A fifth digit pushes the first one out; an emptied box may stay empty for a while.
        if (typed != m_model.spriteAddress())
            showAddress();
    });
    connect(&box, &HexEdit::editingFinished, this, &MiscellaneousPage::showAddress);
}

void MiscellaneousPage::changeItem(void (RoomSettingsModel::*change)())
{
    (m_model.*change)();
    refresh();
}

void MiscellaneousPage::showItem()
{
    const bool chamber = m_model.isChamber();
    const bool hasItem = m_model.hasItem();
    m_ui->itemCombo->setEnabled(hasItem);
    if (!hasItem)
        m_ui->itemCombo->setCurrentIndex(-1);
    else if (const std::optional<std::uint8_t> number = m_model.listedItem())
        m_ui->itemCombo->setCurrentIndex(*number);
    // Outside the chambers the check stays as it was, disabled.
    if (chamber)
        m_ui->itemCheck->setChecked(hasItem);
    for (QWidget* control :
         {static_cast<QWidget*>(m_ui->addressButton), static_cast<QWidget*>(m_ui->itemCheck),
          static_cast<QWidget*>(m_ui->addressEdit)})
        control->setEnabled(chamber);
}

void MiscellaneousPage::showAddress()
{
    if (m_model.isChamber())
        m_ui->addressEdit->setHex(m_model.spriteAddress());
    else
        m_ui->addressEdit->setText();
}

} // namespace velko
