#include "window/sheets/CPrefsSheet.h"

#include <algorithm>
#include <array>

#include <QFormLayout>
#include <QScrollArea>
#include <QTabBar>

#include "base/TextNumbers.h"
#include "cockpit/CKorvelDoc.h"
#include "config/texts/PreferenceTexts.h"
#include "window/QtText.h"

namespace korvel {
namespace {

constexpr std::array kAllPages = {PrefsPage::General,  PrefsPage::Map,         PrefsPage::MapLayers,
                                  PrefsPage::Approach, PrefsPage::Identifiers, PrefsPage::Gps,
                                  PrefsPage::Log,      PrefsPage::Pages};
constexpr std::array kMapPages = {PrefsPage::Map, PrefsPage::MapLayers};
constexpr std::array kPagesPage = {PrefsPage::Pages};
constexpr int kRowSpacing = 4;

void addHelp(QFormLayout& form, Text words) {
    auto* help = new QLabel(toQString(words));  // the form's widget takes it
    help->setWordWrap(true);
    form.addRow(help);
}

}  // namespace

CPrefsSheet::CPrefsSheet(QWidget* parent, CKorvelDoc& document)
    : CPrefsSheet(parent, document, kAllPages) {}

CPrefsSheet::CPrefsSheet(QWidget* parent, CKorvelDoc& document, std::span<const PrefsPage> pages)
    : Sheet(parent, toQString(kPreferenceTexts.prefsTitle),
            QDialogButtonBox::Ok | QDialogButtonBox::Cancel),
      document_(document) {
    tabs_.setUsesScrollButtons(true);
    tabs_.tabBar()->setMinimumHeight(kRowPixels);
    tabs_.tabBar()->setVisible(pages.size() > 1);
    for (const PrefsPage page : pages)
        tabs_.addTab(makePage(page, document.settings()).release(), toQString(prefsPageName(page)));
    message_.setWordWrap(true);
    message_.hide();
    search_.setPlaceholderText(toQString(kPreferenceTexts.searchPrefs));
    search_.setAccessibleName(search_.placeholderText());
    search_.setClearButtonEnabled(true);
    connect(&search_, &QLineEdit::textChanged, this, [this] { search(); });
    if (pages.size() > 1) {
        addRow(search_);
        search_.setFocus();
    }
    addTallRow(tabs_);
    addRow(message_);
    setPreferredWidth(18 * kRowPixels);
}

std::unique_ptr<QWidget> CPrefsSheet::makePage(PrefsPage page, const Settings& settings) {
    auto rows = std::make_unique<QWidget>();
    auto* form = new QFormLayout(rows.get());
    form->setVerticalSpacing(kRowSpacing);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    if (page == PrefsPage::Pages)
        addHelp(*form, kPreferenceTexts.pagesHelp);
    for (const PrefRow& row : prefRows())
        if (row.page == page)
            addEditor(*rows, row, row.valueIn(settings));
    if (page == PrefsPage::Log)
        addHelp(*form, kPreferenceTexts.logRecorded);
    auto scroll = std::make_unique<QScrollArea>();
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(rows.release());
    return scroll;
}

void CPrefsSheet::addEditor(QWidget& page, const PrefRow& row, const SettingValue& value) {
    auto& form = static_cast<QFormLayout&>(*page.layout());
    const QString name = toQString(row.label);
    Editor editor{.row = row, .tab = tabs_.count()};
    QWidget* widget = nullptr;
    if (row.kind == PrefKind::Flag) {
        widget = editor.box = new QCheckBox(name, &page);
        editor.box->setChecked(std::get<int>(value) != 0);
        form.addRow(widget);
    } else if (row.kind == PrefKind::Choice) {
        widget = editor.list = new QComboBox(&page);
        for (const Text choice : row.choices)
            editor.list->addItem(toQString(choice));
        const int index = std::get<int>(value);
        editor.list->setCurrentIndex(index >= 0 && index < editor.list->count() ? index : 0);
    } else {
        const int* number = std::get_if<int>(&value);
        widget = editor.line = new QLineEdit(&page);
        editor.line->setText(
            toQString(number == nullptr ? std::get<std::string>(value) : formatInt(*number)));
        if (row.kind == PrefKind::Text)
            editor.line->setMaxLength(row.highest);
    }
    if (editor.box == nullptr) {
        form.addRow(name, widget);
        form.labelForField(widget)->setMinimumHeight(kRowPixels);  // words on one line with it
    }
    widget->setMinimumHeight(kRowPixels);
    widget->setAccessibleName(name);
    editor.widget = widget;
    // A number out of range shows, and is asked for, when the pilot accepts.
    if (!read(editor, editor.shown).empty())
        editor.shown = value;
    editors_.push_back(editor);
}

void CPrefsSheet::offerSchemes(std::span<const std::string> names, const std::string& chosen) {
    for (const std::string& name : names)
        schemes_.addItem(toQString(name));
    shownScheme_ = toQString(chosen);
    schemes_.setCurrentText(shownScheme_);
    schemes_.setMinimumHeight(kRowPixels);
    schemes_.setAccessibleName(toQString(kPreferenceTexts.prefScheme));
    QWidget* page = static_cast<QScrollArea*>(tabs_.widget(0))->widget();
    auto& form = static_cast<QFormLayout&>(*page->layout());
    form.insertRow(0, toQString(kPreferenceTexts.prefScheme), &schemes_);
    form.labelForField(&schemes_)->setMinimumHeight(kRowPixels);
}

void CPrefsSheet::search() {
    const QString wanted = search_.text().trimmed();
    const auto holds = [&](Text words) {
        return toQString(words).contains(wanted, Qt::CaseInsensitive);
    };
    const auto isNamed = [&](const Editor& editor) {
        return holds(editor.row.label) || holds(prefsPageName(editor.row.page)) ||
               std::ranges::any_of(editor.row.choices, holds);
    };
    std::vector<bool> hasRows(static_cast<std::size_t>(tabs_.count()), wanted.isEmpty());
    const auto show = [&](QWidget& widget, int tab, bool shown) {
        auto& form = static_cast<QFormLayout&>(*widget.parentWidget()->layout());
        form.setRowVisible(&widget, shown);
        if (shown)
            hasRows[static_cast<std::size_t>(tab)] = true;
    };
    for (const Editor& editor : editors_)
        show(*editor.widget, editor.tab, isNamed(editor));
    if (schemes_.count() > 0)
        show(schemes_, 0, holds(kPreferenceTexts.prefScheme));
    for (int tab = 0; tab < tabs_.count(); ++tab)
        tabs_.setTabVisible(tab, hasRows[static_cast<std::size_t>(tab)]);
    message_.setText(toQString(kPreferenceTexts.noSuchPref));
    message_.setVisible(std::ranges::find(hasRows, true) == hasRows.end());
}

std::string CPrefsSheet::read(const Editor& editor, SettingValue& value) {
    if (editor.line != nullptr)
        return editor.row.read(editor.line->text().trimmed().toStdString(), value);
    value = editor.box == nullptr ? editor.list->currentIndex() : (editor.box->isChecked() ? 1 : 0);
    return {};
}

void CPrefsSheet::accept() {
    Settings settings = document_.settings();
    for (const Editor& editor : editors_) {
        SettingValue value;
        const std::string error = read(editor, value);
        if (!error.empty()) {
            search_.clear();
            message_.setText(toQString(error));
            message_.show();
            tabs_.setCurrentIndex(editor.tab);
            editor.line->setFocus();
            return;
        }
        if (value != editor.shown)
            editor.row.store(value, settings);
    }
    document_.applySettings(settings);
    Sheet::accept();
    if (onScheme && schemes_.currentText() != shownScheme_)
        onScheme(schemes_.currentText().toStdString());
}

CMapDialog::CMapDialog(QWidget* parent, CKorvelDoc& document)
    : CPrefsSheet(parent, document, kMapPages) {
    setWindowTitle(toQString(kPreferenceTexts.prefsMap));
}

CViewPagesDialog::CViewPagesDialog(QWidget* parent, CKorvelDoc& document)
    : CPrefsSheet(parent, document, kPagesPage) {
    setWindowTitle(toQString(kPreferenceTexts.prefsPages));
}

}  // namespace korvel
