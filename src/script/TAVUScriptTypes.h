// The toolkit's script types: one object each, made by CUIManager::Initialize
// in the order of the table below and removed by Shutdown. A type that is not
// built yet keeps a null Make and is skipped on both sides.
#pragma once

#include "TavuExport.h"

class RXTypeDefinition;

extern TAVU_API RXTypeDefinition* pTAVUKitType;
extern TAVU_API RXTypeDefinition* pTAVUElementType;
extern TAVU_API RXTypeDefinition* pTAVUFrameType;
extern TAVU_API RXTypeDefinition* pTAVUListBoxItemType;
extern TAVU_API RXTypeDefinition* pTAVUListBoxType;
extern TAVU_API RXTypeDefinition* pTAVUButtonType;
extern TAVU_API RXTypeDefinition* pTAVUCheckBoxType;
extern TAVU_API RXTypeDefinition* pTAVUComboBoxType;
extern TAVU_API RXTypeDefinition* pTAVUConsoleType;
extern TAVU_API RXTypeDefinition* pTAVUFontType;
extern TAVU_API RXTypeDefinition* pTAVUGaugeType;
extern TAVU_API RXTypeDefinition* pTAVUHudElementType;
extern TAVU_API RXTypeDefinition* pTAVUMapBlipType;
extern TAVU_API RXTypeDefinition* pTAVUMapType;
extern TAVU_API RXTypeDefinition* pTAVUMessageBoxType;
extern TAVU_API RXTypeDefinition* pTAVUScrollBarType;
extern TAVU_API RXTypeDefinition* pTAVUSliderType;
extern TAVU_API RXTypeDefinition* pTAVUTabType;
extern TAVU_API RXTypeDefinition* pTAVUTabControlType;
extern TAVU_API RXTypeDefinition* pTAVUTextType;
extern TAVU_API RXTypeDefinition* pTAVUTextEditType;
extern TAVU_API RXTypeDefinition* pTAVUTextEntryType;
extern TAVU_API RXTypeDefinition* pTAVUTextureType;
extern TAVU_API RXTypeDefinition* pTAVUTooltipType;
extern TAVU_API RXTypeDefinition* pTAVUTreeNodeType;
extern TAVU_API RXTypeDefinition* pTAVUTreeType;
extern TAVU_API RXTypeDefinition* pTAVUWindowType;

struct TAVUScriptTypeSlot {
    const char* Name;            // the script name, for messages and tests
    RXTypeDefinition** Global;   // where the type object lives
    RXTypeDefinition* (*Make)(); // null until the type is built
    RXTypeDefinition** Base;     // the global of the declared base type, or null
};

enum : unsigned { TAVU_SCRIPT_TYPE_COUNT = 27 };
extern const TAVUScriptTypeSlot g_TAVUScriptTypes[TAVU_SCRIPT_TYPE_COUNT];
