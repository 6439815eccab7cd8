#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

#include "cockpit/PrefsTable.h"
#include "window/sheets/Sheet.h"

namespace korvel {

class CKorvelDoc;

/// Asks for settings, a tab for each page of the preferences, with a search where there are
/// several. OK puts them in force, and only when every one of them will do; Cancel changes nothing.
class CPrefsSheet : public Sheet {
 public:
    /// Every page. The document must outlive the sheet.
    CPrefsSheet(QWidget* parent, CKorvelDoc& document);

    /// Adds a choice of the colour scheme to the first page.
    void offerSchemes(std::span<const std::string> names, const std::string& chosen);
    /// Another scheme was accepted.
    std::function<void(const std::string& name)> onScheme;

    void accept() override;

 protected:
    CPrefsSheet(QWidget* parent, CKorvelDoc& document, std::span<const PrefsPage> pages);

 private:
    /// A row and the one of the widgets that it is asked for with.
    struct Editor {
        const PrefRow& row;
        QCheckBox* box = nullptr;
        QComboBox* list = nullptr;
        QLineEdit* line = nullptr;
        QWidget* widget = nullptr;  ///< one of these
        int tab = 0;
        /// As it was shown; what the pilot left alone keeps even a value that is not on offer.
        SettingValue shown{};
    };

    /// A page to scroll; the tabs take it.
    std::unique_ptr<QWidget> makePage(PrefsPage page, const Settings& settings);
    /// The row's widget is the page's.
    void addEditor(QWidget& page, const PrefRow& row, const SettingValue& value);
    /// Shows only the settings whose names, choices or pages hold what was typed.
    void search();
    /// What the widget says; the message for the pilot when that will not do.
    static std::string read(const Editor& editor, SettingValue& value);

    CKorvelDoc& document_;
    QLineEdit search_;
    QTabWidget tabs_;
    QLabel message_;
    std::vector<Editor> editors_;
    QComboBox schemes_;
    QString shownScheme_;
};

/// The map's content alone.
class CMapDialog final : public CPrefsSheet {
 public:
    CMapDialog(QWidget* parent, CKorvelDoc& document);
};

/// The pages that the next-page command goes through.
class CViewPagesDialog final : public CPrefsSheet {
 public:
    CViewPagesDialog(QWidget* parent, CKorvelDoc& document);
};

}  // namespace korvel
