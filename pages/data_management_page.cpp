#include "pages/data_management_page.h"

#include "ui_data_management_page.h"

namespace velko {

namespace {

// In the order of DataManagementModel::kRows.
constexpr std::array<DataManagementIds, DataManagementModel::kRows.size()> kIds = {{
    {1120, 1121, 1116, 1113, 1114, 1115, 1148, 1159, 1201, 1070, 1112},
    {1126, 1122, 1118, 1123, 1124, 1125, 1149, 1157, 1202, 1071, 1119},
    {1133, 1127, 1128, 1130, 1131, 1132, 1150, 1158, 1204, 1072, 1129},
    {1140, 1134, 1135, 1137, 1138, 1139, 1151, 1156, 1155, 1073, 1136},
    {1147, 1141, 1142, 1144, 1145, 1146, 1152, 1153, 1154, 1074, 1143},
}};

} // namespace

DataManagementPage::DataManagementPage(EditorState& state, UserPrompt& prompt, QWidget* parent)
    : Page(parent)
    , m_state(state)
    , m_model(state, prompt)
    , m_ui(std::make_unique<Ui::DataManagementPage>())
{
    m_ui->setupUi(this);
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        m_rows[i] = new DataManagementRow(m_model, DataManagementModel::kRows[i], kIds[i], this);
        m_ui->rowsLayout->addWidget(m_rows[i]);
    }
}

DataManagementPage::~DataManagementPage() = default;

void DataManagementPage::setup()
{
    for (DataManagementRow* row : m_rows) {
        row->setRooms(m_state);
        connect(row, &DataManagementRow::changed, this, &DataManagementPage::refresh);
    }
    connect(m_ui->directEditingCheck, &QCheckBox::toggled, this, &DataManagementPage::refresh);
}

void DataManagementPage::refresh()
{
    for (DataManagementRow* row : m_rows)
        row->refresh(m_ui->directEditingCheck->isChecked());
}

} // namespace velko
