#include "menu/menu_item.h"

#include "core/log.h"
#include "system/language.h"

ListRow::~ListRow() = default;

Action* TextMenuItemProvider::getAction() {
    return nullptr;
}

std::string TextMenuItemProvider::getImagePath() {
    return {};
}

std::string TextMenuItemProvider::getExtraText() {
    return {};
}

std::string TextMenuItemProvider::getSecondImagePath() {
    return {};
}

std::string TextMenuItemProvider::getSubLabel() {
    return {};
}

KestroSurface* TextMenuItemProvider::getLabelIcon() {
    return nullptr;
}

void* TextMenuItemProvider::getUserData() {
    return nullptr;
}

bool TextMenuItemProvider::getFirstFlag() {
    return false;
}

std::string TextMenuItemProvider::getThemePath() {
    return {};
}

static std::string textOrEmpty(const char* text) {
    return text ? text : "";
}

TextMenuItem::TextMenuItem(const char* label, KestroSurface* icon, Action* action, bool ownsAction)
    : mLabel(textOrEmpty(label)), mLabelId(-1), mAction(action), mOwnsAction(ownsAction), mFirstFlag(false),
      mSecondFlag(false), mLabelIcon(icon), mSubLabelPresent(0), mSubLabelId(-1) {
    if (icon)
        tprintf("%s labelicon = %p\n", mLabel.c_str(), static_cast<void*>(icon));
}

TextMenuItem::~TextMenuItem() {
    if (mOwnsAction)
        delete mAction;
}

std::string TextMenuItem::getLabel() {
    return shownLabel();
}

const char* TextMenuItem::shownLabel() const {
    return mLabel.empty() ? getLangStr(mLabelId) : mLabel.c_str();
}

std::string TextMenuItem::getSubLabel() {
    return shownSubLabel();
}

const char* TextMenuItem::shownSubLabel() const {
    if (!mSubLabelPresent)
        return "";
    return mSubLabel.empty() ? getLangStr(mSubLabelId) : mSubLabel.c_str();
}

std::string TextMenuItem::getThemePath() {
    return {};
}

void TextMenuItem::setLabel(const char* label) {
    mLabel = textOrEmpty(label);
}

void TextMenuItem::setSubLabel(const char* text) {
    mSubLabel = textOrEmpty(text);
}

void TextMenuItem::setExtraText(const char* text) {
    mThirdText = textOrEmpty(text);
}

void TextMenuItem::setImagePath(const char* path) {
    mFourthText = textOrEmpty(path);
}

void TextMenuItem::setSecondImagePath(const char* path) {
    mFifthText = textOrEmpty(path);
}
