// SPDX-License-Identifier: MIT
#include "ui/line/port_dialog.h"

#include "comm/modbus_control/line/network_port.h"
#include "comm/modbus_control/line/simulated_port.h"
#include "ui/base/beside.h"
#include "ui/base/text.h"
#include "ui/line/network_form.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace zorvane::ui {

namespace {

constexpr std::array usualBauds = {300,   600,   1200,  2400,   4800,   9600,   14400, 19200,
                                   28800, 38400, 57600, 115200, 230400, 460800, 921600};
constexpr int leastBaud = 300;
constexpr int mostBaud = 921600;
constexpr int narrowList = 140;   // pixels, on a small screen
constexpr int dialogHeight = 660; // pixels: a verdict and a report with a few lines each

QString fromPort(const std::string& text) { return QString::fromStdString(text); }

/// A port in the list: its name is what is chosen, its description is shown beside it.
class Port_Item final : public QStandardItem {
  public:
    Port_Item(const std::string& name, const std::string& shown)
        : QStandardItem(fromPort(shown)), name_(fromPort(name)) {}
    [[nodiscard]] QVariant data(int role) const override {
        return role == Qt::EditRole ? QVariant(name_) : QStandardItem::data(role);
    }

  private:
    QString name_;
};

void name(QWidget& widget, const char* given, const QString& words) {
    giveName(widget, QString::fromLatin1(given));
    widget.setAccessibleName(words);
}

void addRow(QFormLayout& form, const QString& words, QWidget& field, const char* given) {
    name(field, given, QString(words).remove(u'&'));
    // In a list that can be typed into, the line has the keyboard, and Qt lends it no name of its list.
    if (const auto* list = qobject_cast<QComboBox*>(&field); list != nullptr && list->isEditable())
        list->lineEdit()->setAccessibleName(field.accessibleName());
    form.addRow(words, &field);
    giveName(*form.labelForField(&field), QStringLiteral("LBL_") + QLatin1String(given));
}

QSpinBox& number(int low, int high, const QString& unit) {
    auto* box = new QSpinBox;
    box->setRange(low, high);
    if (!unit.isEmpty()) box->setSuffix(QStringLiteral(" ") + unit);
    return *box;
}

QComboBox& choice(const std::vector<std::pair<QString, int>>& entries) {
    auto* box = new QComboBox;
    for (const auto& [text, data] : entries)
        box->addItem(text, data);
    return *box;
}

void choose(QComboBox& box, int data) { box.setCurrentIndex(box.findData(data)); }

/// A list into which any text may be typed. It completes nothing: Enter would take the first entry of the
/// list for a text that was set, and an entry for the number that was meant.
QComboBox& editableChoice() {
    auto* box = new QComboBox;
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr);
    return *box;
}

QFormLayout& group(QBoxLayout& column, const QString& title, const char* given) {
    auto* box = new QGroupBox(title);
    giveName(*box, QString::fromLatin1(given));
    auto* form = new QFormLayout(box);
    column.addWidget(box);
    return *form;
}

} // namespace

Port_Dialog::Port_Dialog(Port_Dialog_Services parts, const Port_Settings& settings, QWidget* parent)
    : QDialog(parent), parts_(std::move(parts)) {
    giveName(*this, QStringLiteral("PortSettings"));
    setWindowTitle(QStringLiteral("Port Settings"));
    auto* whole = new QVBoxLayout(this);
    auto* columns = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    columns->addLayout(left);
    columns->addLayout(right);
    whole->addLayout(columns);
    addPort(group(*left, QStringLiteral("Port"), "FRM_Port"));
    addLine(group(*left, QStringLiteral("Line, as the controller has it"), "FRM_Line"));
    addExchange(group(*right, QStringLiteral("Exchange"), "FRM_Exchange"));
    addDirection(group(*right, QStringLiteral("RS-485"), "FRM_Direction"));
    left->addStretch();
    right->addStretch();
    addTest();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    giveName(*buttons->button(QDialogButtonBox::Ok), QStringLiteral("BOT_Ok"));
    giveName(*buttons->button(QDialogButtonBox::Cancel), QStringLiteral("BOT_Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &Port_Dialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &Port_Dialog::reject);
    whole->addWidget(buttons);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    fill(settings);
    refreshPorts();
    resize(withinScreen(*this, {sizeHint().width(), dialogHeight}));
    port_->setFocus();
}

Port_Dialog::~Port_Dialog() { delete test_; } // which gives the port back

void Port_Dialog::addPort(QFormLayout& form) {
    port_ = &editableChoice();
    port_->setModel(new QStandardItemModel(port_));
    port_->setCompleter(nullptr); // a new model brings a new one
    port_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    port_->setMinimumContentsLength(28);
    port_->setMinimumWidth(narrowList);
    addRow(form, QStringLiteral("&Port:"), *port_, "CMB_Port");
    hint_ = new QLabel;
    giveName(*hint_, QStringLiteral("LBL_Port"));
    hint_->setTextFormat(Qt::PlainText);
    hint_->setWordWrap(true);
    form.addRow(QString(), hint_);
    auto* network = new QPushButton(QStringLiteral("&Network..."));
    giveName(*network, QStringLiteral("BOT_Network"));
    network->setToolTip(QStringLiteral("A port on a network, by host and port"));
    network->setAutoDefault(false);
    connect(network, &QPushButton::clicked, this, [this] { enterNetworkPort(); });
    form.addRow(QString(), network);
    slave_ = &number(1, 247, {});
    addRow(form, QStringLiteral("&Slave number:"), *slave_, "NUM_Slave");
    connect(port_, &QComboBox::editTextChanged, this, [this] { showHint(); });
}

void Port_Dialog::addLine(QFormLayout& form) {
    baud_ = &editableChoice();
    for (const int rate : usualBauds)
        baud_->addItem(QString::number(rate));
    baud_->setValidator(new QIntValidator(leastBaud, mostBaud, baud_));
    addRow(form, QStringLiteral("&Baud:"), *baud_, "CMB_Baud");
    parity_ =
        &choice({{QStringLiteral("None"), 'N'}, {QStringLiteral("Even"), 'E'}, {QStringLiteral("Odd"), 'O'}});
    addRow(form, QStringLiteral("P&arity:"), *parity_, "CMB_Parity");
    dataBits_ = &choice({{QStringLiteral("7"), 7}, {QStringLiteral("8"), 8}});
    addRow(form, QStringLiteral("&Data bits:"), *dataBits_, "CMB_DataBits");
    stopBits_ = &choice({{QStringLiteral("1"), 1}, {QStringLiteral("2"), 2}});
    addRow(form, QStringLiteral("Stop b&its:"), *stopBits_, "CMB_StopBits");
}

void Port_Dialog::addExchange(QFormLayout& form) {
    retries_ = &number(0, 20, {});
    addRow(form, QStringLiteral("&Retries:"), *retries_, "NUM_Retries");
    timeOut_ = &number(1, 60000, QStringLiteral("ms"));
    addRow(form, QStringLiteral("Time-o&ut:"), *timeOut_, "NUM_TimeOut");
    timings_ = new QLabel;
    giveName(*timings_, QStringLiteral("LBL_Timings"));
    timings_->setTextFormat(Qt::PlainText);
    timings_->setWordWrap(true);
    form.addRow(timings_);
    connect(timeOut_, qOverload<int>(&QSpinBox::valueChanged), this, [this] { showTimings(); });
}

void Port_Dialog::addDirection(QFormLayout& form) {
    rts_ = &choice({{QStringLiteral("None: the adapter itself, or RS-232"), static_cast<int>(Rts_Mode::None)},
                    {QStringLiteral("RTS high while sending"), static_cast<int>(Rts_Mode::HighOnSend)},
                    {QStringLiteral("Kernel RS-485"), static_cast<int>(Rts_Mode::KernelRs485)}});
    rts_->view()->setMinimumWidth(rts_->sizeHint().width()); // its texts whole, where it is narrow itself
    rts_->setMinimumWidth(narrowList);
    addRow(form, QStringLiteral("RTS &mode:"), *rts_, "CMB_Rts");
    delay_ = &number(0, 1000, QStringLiteral("ms"));
    addRow(form, QStringLiteral("Dela&y before sending:"), *delay_, "NUM_Delay");
    echo_ = new QCheckBox(QStringLiteral("Adapter &echoes"));
    giveName(*echo_, QStringLiteral("CHK_Echo"));
    echo_->setToolTip(QStringLiteral("The adapter repeats what is sent"));
    form.addRow(echo_);
}

void Port_Dialog::addTest() {
    test_ = new Port_Test_Box({parts_.testPort, parts_.clock, [this] { return testRequest(); },
                               [this] { return fault(); }, parts_.lendPort, parts_.takePortBack,
                               parts_.timings.timeOutMs,
                               [this](std::int32_t timeOutMs) { timeOut_->setValue(timeOutMs); }});
    static_cast<QBoxLayout*>(layout())->addWidget(test_, 1);
}

void Port_Dialog::fill(const Port_Settings& settings) {
    port_->setEditText(fromPort(settings.port));
    slave_->setValue(settings.slave);
    baud_->setEditText(QString::number(settings.line.baud));
    choose(*parity_, settings.line.parity);
    choose(*dataBits_, settings.line.dataBits);
    choose(*stopBits_, settings.line.stopBits);
    retries_->setValue(settings.retries);
    timeOut_->setValue(settings.timeOutMs);
    choose(*rts_, static_cast<int>(settings.rts));
    delay_->setValue(settings.txDelayMs);
    echo_->setChecked(settings.adapterEchoes);
    showTimings();
}

std::string Port_Dialog::chosenPort() const { return port_->currentText().trimmed().toStdString(); }

Port_Settings Port_Dialog::settings() const {
    Port_Settings settings;
    settings.port = chosenPort();
    settings.slave = slave_->value();
    settings.line = {baud_->currentText().toInt(), static_cast<char>(parity_->currentData().toInt()),
                     dataBits_->currentData().toInt(), stopBits_->currentData().toInt()};
    settings.retries = retries_->value();
    settings.timeOutMs = timeOut_->value();
    settings.rts = static_cast<Rts_Mode>(rts_->currentData().toInt());
    settings.txDelayMs = delay_->value();
    settings.adapterEchoes = echo_->isChecked();
    return settings;
}

void Port_Dialog::refreshPorts() {
    const QString typed = port_->currentText();
    ports_ = parts_.finder.ports();
    auto& model = static_cast<QStandardItemModel&>(*port_->model());
    model.clear();
    for (const Port_Entry& entry : ports_)
        model.appendRow(new Port_Item(entry.name, portListText(entry)));
    model.appendRow(new Port_Item(simulatedPortName, simulatedPortName));
    port_->setEditText(typed);
    showHint();
}

void Port_Dialog::showHint() {
    hint_->setText(fromPort(portHint(ports_, chosenPort())));
    enableWhatCounts();
}

/// What means nothing at the port is greyed, and kept.
void Port_Dialog::enableWhatCounts() {
    if (echo_ == nullptr) return;
    const Counting_Settings counts = countingSettings(chosenPort());
    for (QComboBox* box : {baud_, parity_, dataBits_, stopBits_})
        box->setEnabled(counts.line);
    rts_->setEnabled(counts.rts);
    delay_->setEnabled(counts.rts);
    echo_->setEnabled(counts.echo);
}

void Port_Dialog::enterNetworkPort() {
    Network_Form form(chosenPort(), this);
    if (form.exec() == QDialog::Accepted) port_->setEditText(fromPort(form.port()));
}

void Port_Dialog::showTimings() {
    timings_->setText(fromCore(timingsText(parts_.timings, timeOut_->value())));
}

std::string Port_Dialog::fault() const {
    if (chosenPort().empty()) return "Choose a port, or type its name or path.";
    return settingsFault(settings());
}

Trial_Request Port_Dialog::testRequest() const {
    const std::int64_t wire = std::int64_t{parts_.testRegister} - parts_.addressBase;
    const bool reachable = wire >= 0 && wire <= largestWireAddress;
    Trial_Request request;
    request.settings = settings();
    request.timeOutMs = parts_.timings.timeOutMs > 0 ? parts_.timings.timeOutMs : request.settings.timeOutMs;
    request.firstRegister = reachable ? parts_.testRegister : parts_.addressBase;
    request.wireAddress = static_cast<std::uint16_t>(reachable ? wire : 0);
    return request;
}

void Port_Dialog::done(int result) {
    if (test_->running()) test_->stop();
    QDialog::done(result);
}

void Port_Dialog::accept() {
    const std::string wrong = settingsFault(settings());
    if (wrong.empty()) return QDialog::accept();
    test_->say(wrong);
}

} // namespace zorvane::ui
