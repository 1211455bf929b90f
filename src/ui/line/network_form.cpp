// SPDX-License-Identifier: MIT
#include "ui/line/network_form.h"

#include "ui/base/text.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace zorvane::ui {

namespace {

constexpr int usualTcpPort = 502;

void addNamedRow(QFormLayout& form, const QString& words, QWidget& field, const char* given) {
    giveName(field, QString::fromLatin1(given));
    field.setAccessibleName(QString(words).remove(u'&').remove(u':'));
    form.addRow(words, &field);
    giveName(*form.labelForField(&field), QStringLiteral("LBL_") + QLatin1String(given));
}

} // namespace

Network_Form::Network_Form(const std::string& present, QWidget* parent) : QDialog(parent) {
    giveName(*this, QStringLiteral("NetworkPort"));
    setWindowTitle(QStringLiteral("Port on a Network"));
    addFields();
    if (const auto network = networkPort(present)) {
        protocol_->setCurrentIndex(protocol_->findData(static_cast<int>(network->protocol)));
        host_->setText(QString::fromStdString(network->host));
        port_->setValue(network->port);
    }
    host_->setFocus();
}

void Network_Form::addFields() {
    auto* whole = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    whole->addLayout(form);
    protocol_ = new QComboBox;
    protocol_->addItem(QStringLiteral("Modbus TCP"), static_cast<int>(Network_Protocol::ModbusTcp));
    protocol_->addItem(QStringLiteral("RTU over TCP: the line is set at the server"),
                       static_cast<int>(Network_Protocol::RtuOverTcp));
    protocol_->addItem(QStringLiteral("RFC 2217: the line is set from here"),
                       static_cast<int>(Network_Protocol::Rfc2217));
    addNamedRow(*form, QStringLiteral("&Speaks:"), *protocol_, "CMB_Protocol");
    host_ = new QLineEdit;
    host_->setPlaceholderText(QStringLiteral("A name or a number, such as 192.168.0.7"));
    host_->setMinimumWidth(host_->fontMetrics().averageCharWidth() * 40);
    addNamedRow(*form, QStringLiteral("&Host:"), *host_, "EDT_Host");
    port_ = new QSpinBox;
    port_->setRange(1, 65535);
    port_->setValue(usualTcpPort);
    addNamedRow(*form, QStringLiteral("&Port there:"), *port_, "NUM_Port");
    fault_ = new QLabel;
    giveName(*fault_, QStringLiteral("LBL_Fault"));
    fault_->setTextFormat(Qt::PlainText);
    fault_->setWordWrap(true);
    whole->addWidget(fault_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    giveName(*buttons->button(QDialogButtonBox::Ok), QStringLiteral("BOT_Ok"));
    giveName(*buttons->button(QDialogButtonBox::Cancel), QStringLiteral("BOT_Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &Network_Form::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    whole->addWidget(buttons);
}

std::string Network_Form::port() const {
    const auto protocol = static_cast<Network_Protocol>(protocol_->currentData().toInt());
    return nameOf(
        {protocol, host_->text().trimmed().toStdString(), static_cast<std::uint16_t>(port_->value())});
}

void Network_Form::accept() {
    const std::string fault = networkNameFault(port());
    if (fault.empty()) return QDialog::accept();
    fault_->setText(QString::fromStdString(fault));
}

} // namespace zorvane::ui
