#include "pages/map_allocation_page.h"

#include "app/focus_frame.h"
#include "app/scroll_rule.h"
#include "app/text.h"
#include "ui_map_allocation_page.h"

namespace velko {

MapAllocationPage::MapAllocationPage(EditorState& state, UserPrompt& prompt, QWidget* parent)
    : Page(parent)
    , m_model(state)
    , m_prompt(prompt)
    , m_ui(std::make_unique<Ui::MapAllocationPage>())
{
    m_ui->setupUi(this);
    m_ui->screenList->setModel(&m_lines);
    new FocusFrame(*m_ui->screenList);
    m_ui->screenView->setPictureSize({256, 240});
    // Room for an address, however it is typed.
    for (HexEdit* box : {m_ui->addressEdit, m_ui->indexEdit})
        box->setFixedWidth(box->minimumSizeHint().width()
                           + box->fontMetrics().horizontalAdvance("0x0000"));
}

MapAllocationPage::~MapAllocationPage()
{
    // While the widgets go, a box may lose the focus, which ends its editing.
    m_ui->addressEdit->disconnect(this);
    m_ui->indexEdit->disconnect(this);
}

void MapAllocationPage::setup()
{
    connect(m_ui->screenList->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& line) {
                // The page's own choice of a line is what is shown already.
                if (!line.isValid() || line.row() == m_model.selectedPosition())
                    return;
                m_model.select(line.row());
                showSelection();
            });
    connectButtons();
    connectBox(*m_ui->addressEdit, &MapAllocationModel::setAddress,
               &MapAllocationPage::showAddress);
    connectBox(*m_ui->indexEdit, &MapAllocationModel::setIndex, &MapAllocationPage::showIndex);
    connectScrollBar(*m_ui->indexBar, 1, [this](int position) {
        m_model.setIndex(static_cast<std::uint32_t>(position));
        showChange();
    });
}

void MapAllocationPage::refresh()
{
    m_model.resetSelection();
    showChange();
}

void MapAllocationPage::connectButtons()
{
    connect(m_ui->insertButton, &QPushButton::clicked, this,
            &MapAllocationPage::insertAfterSelected);
    connect(m_ui->removeButton, &QPushButton::clicked, this, [this] {
        m_model.removeSelected();
        showChange();
    });
    connect(m_ui->resetButton, &QPushButton::clicked, this, [this] {
        m_model.resetList();
        showChange();
    });
    connect(m_ui->findFreeButton, &QPushButton::clicked, this, [this] {
        m_model.useFreeScreen();
        showChange();
    });
}

void MapAllocationPage::connectBox(HexEdit& box, void (MapAllocationModel::*write)(std::uint32_t),
                                   void (MapAllocationPage::*showNumber)())
{
    connect(&box, &HexEdit::textChanged, this, [this, &box, write] {
        if (box.settingText())
            return;
        (m_model.*write)(box.getHex());
        showChange(&box);
    });
    connect(&box, &HexEdit::editingFinished, this, showNumber);
}

void MapAllocationPage::insertAfterSelected()
{
    const MapAllocationModel::InsertResult result = m_model.insertAfterSelected();
    if (result == MapAllocationModel::InsertResult::kDone)
        showChange();
    else
        m_prompt.showMessage(MapAllocationModel::message(result), MessageIcon::kNone);
}

void MapAllocationPage::showChange(const HexEdit* typedBox)
{
    showList();
    setScrollRange(*m_ui->indexBar, m_model.scrollMaximum(), MapAllocationModel::kScrollPage);
    showSelection(typedBox);
}

void MapAllocationPage::showList()
{
    QStringList lines;
    for (const std::string& line : m_model.lines())
        lines.append(toQString(line));
    if (lines.size() == m_lines.rowCount()) {
        // The list stays scrolled to where it is.
        for (int row = 0; row < lines.size(); ++row) {
            const QModelIndex line = m_lines.index(row);
            if (line.data().toString() != lines[row])
                m_lines.setData(line, lines[row]);
        }
    } else {
        m_lines.setStringList(lines);
    }
    m_ui->screenList->setCurrentIndex(m_lines.index(m_model.selectedPosition()));
}

void MapAllocationPage::showSelection(const HexEdit* typedBox)
{
    m_model.drawSelectedScreen(m_ui->screenView->picture());
    m_ui->screenView->showPicture();
    if (typedBox != m_ui->addressEdit)
        showAddress();
    if (typedBox != m_ui->indexEdit)
        showIndex();
    m_ui->indexBar->setValue(static_cast<int>(m_model.selectedIndex()));
    m_ui->freeSpaceValue->setText(toQString(m_model.freeSpaceText()));
}

void MapAllocationPage::showAddress()
{
    m_ui->addressEdit->setHex(m_model.selectedAddress());
}

void MapAllocationPage::showIndex()
{
    m_ui->indexEdit->setHex(m_model.selectedIndex());
}

} // namespace velko
