#include "TAVUScriptTypes.h"

#include "TAVUButtonType.h"
#include "TAVUCheckBoxType.h"
#include "TAVUComboBoxType.h"
#include "TAVUConsoleType.h"
#include "TAVUElementType.h"
#include "TAVUFontType.h"
#include "TAVUFrameType.h"
#include "TAVUGaugeType.h"
#include "TAVUHudElementType.h"
#include "TAVUListBoxItemType.h"
#include "TAVUListBoxType.h"
#include "TAVUMapBlipType.h"
#include "TAVUMapType.h"
#include "TAVUMessageBoxType.h"
#include "TAVUScrollBarType.h"
#include "TAVUSliderType.h"
#include "TAVUTabControlType.h"
#include "TAVUTabType.h"
#include "TAVUTextEditType.h"
#include "TAVUTextEntryType.h"
#include "TAVUTextType.h"
#include "TAVUTextureType.h"
#include "TAVUTooltipType.h"
#include "TAVUTreeNodeType.h"
#include "TAVUTreeType.h"
#include "TAVUWindowType.h"
#include "TavukitType.h"

RXTypeDefinition* pTAVUKitType = nullptr;
RXTypeDefinition* pTAVUElementType = nullptr;
RXTypeDefinition* pTAVUFrameType = nullptr;
RXTypeDefinition* pTAVUListBoxItemType = nullptr;
RXTypeDefinition* pTAVUListBoxType = nullptr;
RXTypeDefinition* pTAVUButtonType = nullptr;
RXTypeDefinition* pTAVUCheckBoxType = nullptr;
RXTypeDefinition* pTAVUComboBoxType = nullptr;
RXTypeDefinition* pTAVUConsoleType = nullptr;
RXTypeDefinition* pTAVUFontType = nullptr;
RXTypeDefinition* pTAVUGaugeType = nullptr;
RXTypeDefinition* pTAVUHudElementType = nullptr;
RXTypeDefinition* pTAVUMapBlipType = nullptr;
RXTypeDefinition* pTAVUMapType = nullptr;
RXTypeDefinition* pTAVUMessageBoxType = nullptr;
RXTypeDefinition* pTAVUScrollBarType = nullptr;
RXTypeDefinition* pTAVUSliderType = nullptr;
RXTypeDefinition* pTAVUTabType = nullptr;
RXTypeDefinition* pTAVUTabControlType = nullptr;
RXTypeDefinition* pTAVUTextType = nullptr;
RXTypeDefinition* pTAVUTextEditType = nullptr;
RXTypeDefinition* pTAVUTextEntryType = nullptr;
RXTypeDefinition* pTAVUTextureType = nullptr;
RXTypeDefinition* pTAVUTooltipType = nullptr;
RXTypeDefinition* pTAVUTreeNodeType = nullptr;
RXTypeDefinition* pTAVUTreeType = nullptr;
RXTypeDefinition* pTAVUWindowType = nullptr;

// Registering a type as it lands is one Make function in its row.
const TAVUScriptTypeSlot g_TAVUScriptTypes[TAVU_SCRIPT_TYPE_COUNT] = {
    {"tavukit", &pTAVUKitType, TavukitType::Make, nullptr},
    {"tavuelement", &pTAVUElementType, TAVUElementType::Make, nullptr},
    {"tavuframe", &pTAVUFrameType, TAVUFrameType::Make, &pTAVUElementType},
    {"tavulistboxitem", &pTAVUListBoxItemType, TAVUListBoxItemType::Make, nullptr},
    {"tavulistbox", &pTAVUListBoxType, TAVUListBoxType::Make, &pTAVUElementType},
    {"tavubutton", &pTAVUButtonType, TAVUButtonType::Make, &pTAVUElementType},
    {"tavucheckbox", &pTAVUCheckBoxType, TAVUCheckBoxType::Make, &pTAVUElementType},
    {"tavucombobox", &pTAVUComboBoxType, TAVUComboBoxType::Make, &pTAVUListBoxType},
    {"tavuconsole", &pTAVUConsoleType, TAVUConsoleType::Make, &pTAVUFrameType},
    {"tavufont", &pTAVUFontType, TAVUFontType::Make, nullptr},
    {"tavugauge", &pTAVUGaugeType, TAVUGaugeType::Make, &pTAVUFrameType},
    {"tavuhudelement", &pTAVUHudElementType, TAVUHudElementType::Make, &pTAVUElementType},
    {"tavumapblip", &pTAVUMapBlipType, TAVUMapBlipType::Make, &pTAVUFrameType},
    {"tavumap", &pTAVUMapType, TAVUMapType::Make, &pTAVUElementType},
    {"tavumessagebox", &pTAVUMessageBoxType, TAVUMessageBoxType::Make, &pTAVUElementType},
    {"tavuscrollbar", &pTAVUScrollBarType, TAVUScrollBarType::Make, &pTAVUElementType},
    {"tavuslider", &pTAVUSliderType, TAVUSliderType::Make, &pTAVUElementType},
    {"tavutab", &pTAVUTabType, TAVUTabType::Make, &pTAVUFrameType},
    {"tavutabcontrol", &pTAVUTabControlType, TAVUTabControlType::Make, &pTAVUFrameType},
    {"tavutext", &pTAVUTextType, TAVUTextType::Make, &pTAVUElementType},
    {"tavutextedit", &pTAVUTextEditType, TAVUTextEditType::Make, &pTAVUElementType},
    {"tavutextentry", &pTAVUTextEntryType, TAVUTextEntryType::Make, &pTAVUElementType},
    {"tavutexture", &pTAVUTextureType, TAVUTextureType::Make, nullptr},
    {"tavutooltip", &pTAVUTooltipType, TAVUTooltipType::Make, &pTAVUFrameType},
    {"tavutreenode", &pTAVUTreeNodeType, TAVUTreeNodeType::Make, nullptr},
    {"tavutree", &pTAVUTreeType, TAVUTreeType::Make, &pTAVUFrameType},
    {"tavuwindow", &pTAVUWindowType, TAVUWindowType::Make, &pTAVUFrameType},
};
