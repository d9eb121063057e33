// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/newfiledialog_p.h>

#include <fpgaproject/file/projectdocument.h>
#include <fpgaproject/options/newitemsettings_p.h>
#include <fpgaproject/project/messages_p.h>
#include <fpgaproject/wizards/filecreation_p.h>
#include <fpgaproject/wizards/porttable_p.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSet>

namespace Fpga {

namespace {

QString titleOf(FileKind kind)
{
    switch (kind) {
    case FileKind::Verilog:
        return NewFileDialog::tr("New Verilog File");
    case FileKind::SystemVerilog:
        return NewFileDialog::tr("New SystemVerilog File");
    case FileKind::Vhdl:
        return NewFileDialog::tr("New VHDL File");
    case FileKind::TimingConstraint:
        return NewFileDialog::tr("New Timing Constraints File");
    default:
        return NewFileDialog::tr("New Physical Constraints File");
    }
}

} // namespace

NewFileDialog::NewFileDialog(FileKind kind, const QString &directory, QWidget *parent)
    : QDialog(parent)
    , m_kind(kind)
    , m_fileName(new QLineEdit(this))
    , m_directory(new QLineEdit(QDir::toNativeSeparators(directory), this))
    , m_header(new QCheckBox(tr("Begin with a comment of the file's name and the date"), this))
    , m_preview(new QPlainTextEdit(this))
    , m_error(new QLabel(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(titleOf(kind));
    m_fileName->setObjectName(QStringLiteral("editFileName"));
    m_directory->setObjectName(QStringLiteral("editDirectory"));
    m_directory->setReadOnly(true);
    m_header->setObjectName(QStringLiteral("checkHeader"));
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setReadOnly(true);
    m_preview->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_preview->setAccessibleName(tr("Preview"));
    m_preview->setTabChangesFocus(true);
    m_error->setObjectName(QStringLiteral("labelErrMsg"));
    m_error->setTextFormat(Qt::PlainText);
    m_error->setWordWrap(true);
    m_error->setStyleSheet(QStringLiteral("QLabel { color : red; }"));
    auto *const browseButton = new QPushButton(tr("Browse..."), this);
    browseButton->setObjectName(QStringLiteral("btnBrowse"));
    browseButton->setAutoDefault(false);

    auto *const form = new QFormLayout(this);
    if (isSource(kind)) {
        m_name = new QLineEdit(this);
        m_name->setObjectName(QStringLiteral("editName"));
        form->addRow(kind == FileKind::Vhdl ? tr("&Entity name:") : tr("&Module name:"), m_name);
        connect(m_name, &QLineEdit::textEdited, this, &NewFileDialog::onNameEdited);
    }
    form->addRow(tr("&File name:"), m_fileName);
    auto *const place = new QHBoxLayout;
    place->addWidget(m_directory, 1);
    place->addWidget(browseButton);
    form->addRow(tr("F&older:"), place);
    // A layout is no buddy.
    qobject_cast<QLabel *>(form->labelForField(place))->setBuddy(m_directory);
    if (isSource(kind)) {
        m_ports = new PortTable(this);
        form->addRow(tr("Ports:"), m_ports);
        connect(m_ports, &PortTable::changed, this, &NewFileDialog::showWhatComes);
    }
    form->addRow(QString(), m_header);
    form->addRow(tr("Preview:"), m_preview);
    form->addRow(m_error);
    form->addRow(m_buttons);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);

    connect(m_fileName, &QLineEdit::textEdited, this, [this] {
        m_fileNameFollows = false;
        showWhatComes();
    });
    connect(m_header, &QCheckBox::toggled, this, &NewFileDialog::showWhatComes);
    connect(browseButton, &QPushButton::clicked, this, &NewFileDialog::browse);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &NewFileDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &NewFileDialog::reject);
    if (!isSource(kind)) {
        m_fileName->setText(kind == FileKind::TimingConstraint ? QStringLiteral("timing.sdc")
                                                               : QStringLiteral("pins.pcn"));
    }
    if (m_name)
        setTabOrder(m_name, m_fileName);
    setTabOrder(m_fileName, m_directory);
    setTabOrder(m_directory, browseButton);
    if (m_ports)
        setTabOrder(browseButton, m_ports);
    (m_name ? m_name : m_fileName)->setFocus();
    resize(640, isSource(kind) ? 560 : 380);
    showWhatComes();
}

NewFileDialog::~NewFileDialog() = default;

void NewFileDialog::propose(const NewItemSettings &wanted)
{
    m_author = wanted.author;
    m_header->setChecked(wanted.header);
    showWhatComes();
}

QString NewFileDialog::filePath() const
{
    return QDir::cleanPath(QDir::fromNativeSeparators(m_directory->text()) + QLatin1Char('/')
                           + m_fileName->text());
}

SourceTemplate NewFileDialog::source() const
{
    SourceTemplate source;
    source.kind = m_kind;
    source.fileName = m_fileName->text();
    if (m_name)
        source.module = m_name->text();
    if (m_ports)
        source.ports = m_ports->ports();
    if (m_header->isChecked())
        source.headerDate = QDate::currentDate();
    source.author = m_author;
    return source;
}

QString NewFileDialog::fault() const
{
    if (m_name) {
        const QString inName = nameFault(m_name->text(), m_kind);
        if (!inName.isEmpty())
            return inName;
    }
    const QString file = m_fileName->text();
    if (file.isEmpty())
        return tr("Please enter a name for the file.");
    if (file == QLatin1String(".") || file == QLatin1String("..") || file.contains(QLatin1Char('/'))
        || !isXmlText(file) || file.toUtf8().size() > 255) {
        return tr("\"%1\" is no name for a file.").arg(file);
    }
    const bool anyCase = m_kind == FileKind::Vhdl;
    QSet<QString> names;
    const QVector<Port> ports = m_ports ? m_ports->ports() : QVector<Port>();
    for (const Port &port : ports) {
        const QString portFault = nameFault(port.name, m_kind);
        if (!portFault.isEmpty())
            return portFault;
        const QString name = anyCase ? port.name.toLower() : port.name;
        if (names.contains(name))
            return tr("There are two ports \"%1\".").arg(port.name);
        names.insert(name);
    }
    return {};
}

void NewFileDialog::onNameEdited()
{
    if (m_fileNameFollows) {
        const QString name = m_name->text();
        m_fileName->setText(name.isEmpty() ? QString()
                                           : name + QLatin1Char('.') + newFileSuffix(m_kind));
    }
    showWhatComes();
}

void NewFileDialog::showWhatComes()
{
    const QString reason = fault();
    // Nobody has done anything wrong who has not begun yet.
    const bool begun = !m_fileName->text().isEmpty() || (m_name && !m_name->text().isEmpty());
    m_error->setText(begun ? reason : QString());
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(reason.isEmpty());
    m_preview->setPlainText(reason.isEmpty() ? QString::fromUtf8(sourceText(source())) : QString());
}

void NewFileDialog::browse()
{
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Select Directory..."), m_directory->text());
    if (!chosen.isEmpty())
        m_directory->setText(QDir::toNativeSeparators(chosen));
}

void NewFileDialog::accept()
{
    if (!fault().isEmpty())
        return;
    const QString path = filePath();
    const QString failed = tr("Can not create file \"%1\"").arg(QDir::toNativeSeparators(path));
    QString reason;
    if (!makeFolder(QFileInfo(path).absolutePath(), &reason)) {
        showError(windowTitle(), failed, reason, this);
        return;
    }
    Overwrite overwrite = Overwrite::Never;
    if (QFileInfo::exists(path)) {
        if (!QFileInfo(path).isFile()) {
            showError(windowTitle(), failed, tr("There is a folder of that name."), this);
            return;
        }
        if (!askYesNo(
                windowTitle(),
                tr("The file \"%1\" exists.\nDo you want to replace it? What it holds is lost.")
                    .arg(QDir::toNativeSeparators(path)),
                this)) {
            return;
        }
        overwrite = Overwrite::Allowed;
    }
    if (!writeNewFile(path, sourceText(source()), overwrite, &reason)) {
        showError(windowTitle(), failed, reason, this);
        return;
    }
    QDialog::accept();
}

} // namespace Fpga
