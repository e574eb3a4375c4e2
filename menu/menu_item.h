#pragma once

#include "core/export.h"
#include "gfx/surface.h"
#include "menu/action.h"

#include <cstdint>
#include <string>

/// Anything that a list can hold as a row.
class KESTRO_API ListRow {
public:
    ListRow() = default;
    virtual ~ListRow();
    ListRow(const ListRow&) = delete;
    ListRow& operator=(const ListRow&) = delete;
};

/// A row of text as the list drawer sees it. Main thread.
class KESTRO_API TextMenuItemProvider : public ListRow {
public:
    /// What runs when the row is chosen, null for nothing; stays the row's.
    virtual Action* getAction();

    /// The path of the row's icon; empty for none.
    virtual std::string getImagePath();

    /// A text that a search looks in too.
    virtual std::string getExtraText();

    /// The path of the row's thumbnail; empty for none.
    virtual std::string getSecondImagePath();

    /// The text of the row.
    virtual std::string getLabel() = 0;

    /// The second line; a row that has one is drawn on two lines.
    virtual std::string getSubLabel();

    /// An icon that the row has at hand, null for none; stays its owner's.
    virtual KestroSurface* getLabelIcon();

    /// For the host; null by default.
    virtual void* getUserData();

    /// A flag for the host; false by default.
    virtual bool getFirstFlag();

    /// A folder of pictures for this row; empty by default.
    virtual std::string getThemePath();
};

/// The row that there is: a label, and what else a row can have.
class KESTRO_API TextMenuItem : public TextMenuItemProvider {
public:
    /// `label` may be null: then the word `labelId` is shown (see setLabelId). `icon` stays its owner's,
    /// may be null, and is logged if it is not. `action` may be null; with `ownsAction` the row deletes it.
    TextMenuItem(const char* label, KestroSurface* icon, Action* action, bool ownsAction);
    ~TextMenuItem() override;

    Action* getAction() override { return mAction; }
    std::string getImagePath() override { return mFourthText; }
    std::string getExtraText() override { return mThirdText; }
    std::string getSecondImagePath() override { return mFifthText; }
    std::string getLabel() override;
    std::string getSubLabel() override;
    KestroSurface* getLabelIcon() override { return mLabelIcon; }
    bool getFirstFlag() override { return mFirstFlag; }
    std::string getThemePath() override;

    /// The label. Null counts as empty, and an empty one shows the word `labelId`.
    void setLabel(const char* label);
    /// Index of a word (see getLangStr) that stands in for an empty label. -1 at first, which is no word.
    void setLabelId(int id) { mLabelId = id; }
    int getLabelId() const { return mLabelId; } ///< what setLabelId has set

    /// The second line, made like the label. It is shown only after setSubLabelPresent(true).
    void setSubLabel(const char* text);
    /// Index of a word that stands in for an empty second line. -1 at first, which is no word.
    void setSubLabelId(int id) { mSubLabelId = id; }
    /// Whether the row has a second line. False at first.
    void setSubLabelPresent(bool present) { mSubLabelPresent = present; }

    void setExtraText(const char* text);       ///< what getExtraText gives; null counts as empty
    void setImagePath(const char* path);       ///< what getImagePath gives; null counts as empty
    void setSecondImagePath(const char* path); ///< what getSecondImagePath gives; null counts as empty

    void setFirstFlag(bool flag) { mFirstFlag = flag; }   ///< for the host; false at first
    void setSecondFlag(bool flag) { mSecondFlag = flag; } ///< for the host; false at first
    bool getSecondFlag() const { return mSecondFlag; }    ///< what setSecondFlag has set

    /// What getLabel gives, without a copy: valid until the row or the language changes.
    const char* shownLabel() const;
    /// What getSubLabel gives, without a copy: valid until the row or the language changes.
    const char* shownSubLabel() const;

    /// What getImagePath gives, without a copy: valid until the row changes.
    const char* imagePath() const { return mFourthText.c_str(); }
    /// What getSecondImagePath gives, without a copy: valid until the row changes.
    const char* secondImagePath() const { return mFifthText.c_str(); }

    /// The label as it was given, without the word that may stand in for it.
    const std::string& labelText() const { return mLabel; }

private:
    std::string mLabel;
    int32_t mLabelId;
    Action* mAction;
    bool mOwnsAction;
    bool mFirstFlag;
    bool mSecondFlag;
    KestroSurface* mLabelIcon;
    int64_t mSubLabelPresent;
    std::string mSubLabel;
    int32_t mSubLabelId;
    std::string mThirdText;
    std::string mFourthText;
    std::string mFifthText;
};
