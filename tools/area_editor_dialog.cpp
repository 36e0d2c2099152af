#include "tools/area_editor_dialog.h"

#include "app/scroll_rule.h"
#include "app/text.h"
#include "rom/number_text.h"
#include "ui_area_editor_dialog.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

namespace velko {

AreaEditorDialog::AreaEditorDialog(EditorState& state, QWidget* parent)
    : QDialog(parent), m_settings(state), m_ui(std::make_unique<Ui::AreaEditorDialog>())
{
    m_ui->setupUi(this);
    const QFontMetrics metrics = m_ui->areaEdit->fontMetrics();
    m_ui->areaEdit->setFixedWidth(m_ui->areaEdit->minimumSizeHint().width()
                                  + metrics.horizontalAdvance("00000"));
    setScrollRange(*m_ui->areaBar, static_cast<int>(m_settings.lastArea()), 1);
    fillItems(state);
    connectControls();
    showArea();
}

AreaEditorDialog::~AreaEditorDialog() = default;

void AreaEditorDialog::fillItems(const EditorState& state)
{
    m_ui->clearItemCombo->setNames(state.names.items);
    m_ui->clearItemCombo->setMaxVisibleItems(static_cast<int>(kItems));
}

void AreaEditorDialog::connectControls()
{
    connectScrollBar(*m_ui->areaBar, 1, [this](int area) {
        m_settings.selectArea(static_cast<std::uint32_t>(area));
        showArea();
    });
    connect(m_ui->parachuteCheck, &QCheckBox::clicked, this,
            [this](bool checked) { m_settings.setParachute(checked); });
    connect(m_ui->clearItemCombo, &QComboBox::activated, this,
            [this](int item) { m_settings.setClearItem(static_cast<std::uint8_t>(item)); });
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QDialog::accept);
    m_ui->areaEdit->installEventFilter(this);
}

void AreaEditorDialog::showArea()
{
    m_ui->areaEdit->setText(toQString(decimalText(m_settings.area() + 1)));
    m_ui->parachuteCheck->setChecked(m_settings.parachute());
    m_ui->clearItemCombo->setEnabled(m_settings.hasClearItem());
    // Without an item that can be shown the list goes on showing the one before.
    if (const auto item = m_settings.clearItem(); item && m_settings.hasClearItem())
        m_ui->clearItemCombo->setCurrentIndex(*item);
}

// The number cannot be typed, so the keys that would move its caret go through the areas.
bool AreaEditorDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->areaEdit && event->type() == QEvent::KeyPress) {
        event->ignore();
        scrollByKey(static_cast<QKeyEvent&>(*event), *m_ui->areaBar, *m_ui->areaBar);
        if (event->isAccepted())
            return true;
        event->accept(); // as it came
    }
    return QDialog::eventFilter(watched, event);
}

void AreaEditorDialog::wheelEvent(QWheelEvent* event)
{
    scrollByWheel(*event, *m_ui->areaBar, *m_ui->areaBar);
}

} // namespace velko
