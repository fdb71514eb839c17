#include "CUIManager.h"
#include "ScriptTypeTest.h"
#include "TAVUComboBox.h"
#include "TAVUListBox.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"
#include "Words.h"
#include "XMLNode.h"

#include <cstdlib>
#include <map>
#include <set>
#include <string>

// Every name of the list's tables, bad requests and the combo box are walked
// end to end (tavuhost's list_members case); sorting by an atom that removes
// a row as it runs needs a host that answers in the middle of a sort.
class ListTypes : public ScriptTypeTest {
protected:
    TAVUListBox* MakeList(const char* name) {
        auto* list =
            static_cast<TAVUListBox*>(g_UIManager.LoadElement(g_UIManager.Screen, "listbox", name));
        list->Height = 65;
        return list;
    }
    static std::string Order(TAVUListBox* list) {
        std::string texts;
        for (unsigned order = 0; order < list->ItemCount; ++order)
            texts += list->OrderedItem(order)->Text;
        return texts;
    }
};

// The atom gets both IDs and the list as This, and its answer orders them.
// An atom that fails counts as equal; one that removes a row mid-sort leaves
// the order as it was.
TEST_F(ListTypes, SortByAnAtomOrdersByItsAnswer) {
    TAVUListBox* list = MakeList("L");
    for (const char* text : {"c", "a", "d", "b"})
        list->AddItem(text, nullptr, 0);
    Host.NamedAtoms["byText"] = 42;
    bool removeOnce = false;
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
        EXPECT_EQ(run.This, list);
        ListBoxItem* a = list->RetrieveItem(unsigned(atoi(run.Args[0].c_str())));
        ListBoxItem* b = list->RetrieveItem(unsigned(atoi(run.Args[1].c_str())));
        Host.AtomResult = a && b ? std::to_string(int(a->Text[0]) - int(b->Text[0])) : "0";
        if (removeOnce) {
            removeOnce = false;
            list->RemoveItem(4);
        }
        return 0;
    };
    EXPECT_EQ(Method(pTAVUListBoxType, list, "Sort", {"byText"}), 1);
    EXPECT_EQ(Words(Order(list), list->RetrieveItem(1)->Order), "abcd 2");
    removeOnce = true;
    list->Sort = TAVUListBox::SortNone;
    EXPECT_EQ(Method(pTAVUListBoxType, list, "Sort", {"byText"}), 1);
    EXPECT_EQ(Order(list), "acd"); // the removal only
}
