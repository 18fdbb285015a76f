// The accessible objects of drawn windows and their parts, on GTK.
#include "adapters/desktop/accessible_gtk.h"

namespace kelvane::desktop {

using controls::Spoken;
using controls::SpokenRole;

namespace {

AtkObjectClass* gDrawnBase = nullptr;
AtkObjectClass* gPartBase = nullptr;

AtkRole RoleOf(SpokenRole role) {
    switch (role) {
        case SpokenRole::Button:
            return ATK_ROLE_PUSH_BUTTON;
        case SpokenRole::Cell:
            return ATK_ROLE_TABLE_CELL;
        case SpokenRole::ColumnTitle:
            return ATK_ROLE_COLUMN_HEADER;
        case SpokenRole::Label:
            return ATK_ROLE_LABEL;
        case SpokenRole::Notice:
            return ATK_ROLE_NOTIFICATION;
        case SpokenRole::Page:
            return ATK_ROLE_DOCUMENT_FRAME;
        case SpokenRole::Panel:
            return ATK_ROLE_PANEL;
        case SpokenRole::RowTitle:
            return ATK_ROLE_ROW_HEADER;
        case SpokenRole::Separator:
            return ATK_ROLE_SEPARATOR;
        case SpokenRole::Status:
            return ATK_ROLE_STATUSBAR;
        case SpokenRole::Table:
            return ATK_ROLE_TABLE;
        case SpokenRole::Toolbar:
            return ATK_ROLE_TOOL_BAR;
    }
    return ATK_ROLE_UNKNOWN;
}

Spoken WordsOf(SpokenReader& reader, int part) {
    SpokenSource& source = reader.Source();
    if (part == SpokenSource::kWhole) return source.Whole();
    return part < source.PartCount() ? source.Part(part) : Spoken();
}

// The object keeps the text that it hands out.
const gchar* Keep(gchar*& kept, const std::string& text) {
    g_free(kept);
    kept = g_strdup(text.c_str());
    return kept;
}

// A reader finds a cell's title by the table.
std::string NameOf(const Spoken& words) {
    return words.role == SpokenRole::Cell ? words.text : NameAndText(words);
}

const gchar* GetName(AtkObject* object) {
    SpokenReader* reader = ReaderOf(object);
    return Keep(object->name, reader == nullptr ? "" : NameOf(WordsOf(*reader, PartOf(object))));
}

const gchar* GetDescription(AtkObject* object) {
    SpokenReader* reader = ReaderOf(object);
    return Keep(object->description,
                reader == nullptr ? "" : StateAndPlace(WordsOf(*reader, PartOf(object))));
}

AtkRole GetRole(AtkObject* object) {
    SpokenReader* reader = ReaderOf(object);
    return reader == nullptr ? ATK_ROLE_UNKNOWN : RoleOf(WordsOf(*reader, PartOf(object)).role);
}

// Buttons, as parts and as windows.

gboolean DoAction(AtkAction* action, gint index) {
    SpokenReader* reader = ReaderOf(action);
    if (reader == nullptr || index != 0) return FALSE;
    const Spoken words = WordsOf(*reader, PartOf(action));
    if (!words.enabled || !words.shown) return FALSE;
    reader->PressLater(PartOf(action));
    return TRUE;
}

gint CountActions(AtkAction* /*action*/) {
    return 1;
}

const gchar* NameAction(AtkAction* /*action*/, gint index) {
    return index == 0 ? "press" : nullptr;
}

void FillAction(gpointer interface, gpointer /*data*/) {
    auto* action = static_cast<AtkActionIface*>(interface);
    action->do_action = DoAction;
    action->get_n_actions = CountActions;
    action->get_name = NameAction;
}

// Drawn windows.

gint CountChildren(AtkObject* object) {
    SpokenReader* reader = ReaderOf(object);
    const int native = gDrawnBase->get_n_children(object);
    return reader == nullptr ? native : native + reader->Source().PartCount();
}

AtkObject* RefChild(AtkObject* object, gint index) {
    const int native = gDrawnBase->get_n_children(object);
    if (index < native) return gDrawnBase->ref_child(object, index);
    SpokenReader* reader = ReaderOf(object);
    return reader == nullptr ? nullptr : reader->RefPart(index - native);
}

AtkStateSet* RefDrawnStates(AtkObject* object) {
    AtkStateSet* states = gDrawnBase->ref_state_set(object);
    SpokenReader* reader = ReaderOf(object);
    if (reader == nullptr) return states;
    const Spoken words = reader->Source().Whole();
    if (words.role != SpokenRole::Table) return states;
    atk_state_set_add_state(states, ATK_STATE_MANAGES_DESCENDANTS);
    if (words.locked) atk_state_set_add_state(states, ATK_STATE_READ_ONLY);
    return states;
}

AtkObject* RefAtPoint(AtkComponent* component, gint x, gint y, AtkCoordType from) {
    SpokenReader* reader = ReaderOf(component);
    gint left = 0;
    gint top = 0;
    atk_component_get_extents(component, &left, &top, nullptr, nullptr, from);
    const int part = reader == nullptr ? SpokenSource::kWhole
                                       : reader->Source().PartAt(wxPoint(x - left, y - top));
    if (part != SpokenSource::kWhole) return reader->RefPart(part);
    return ATK_OBJECT(g_object_ref(component));
}

// What else a component does, the base has filled in.
void FillDrawnComponent(gpointer interface, gpointer /*data*/) {
    static_cast<AtkComponentIface*>(interface)->ref_accessible_at_point = RefAtPoint;
}

void FillDrawn(gpointer type, gpointer /*data*/) {
    auto* object = static_cast<AtkObjectClass*>(type);
    gDrawnBase = static_cast<AtkObjectClass*>(g_type_class_ref(GTK_TYPE_CONTAINER_ACCESSIBLE));
    object->get_name = GetName;
    object->get_description = GetDescription;
    object->get_role = GetRole;
    object->get_n_children = CountChildren;
    object->ref_child = RefChild;
    object->ref_state_set = RefDrawnStates;
}

// Parts.

void EndPart(GObject* object) {
    if (SpokenReader* reader = ReaderOf(object)) reader->ForgetPart(PartOf(object));
    G_OBJECT_CLASS(gPartBase)->finalize(object);
}

gint IndexInParent(AtkObject* object) {
    SpokenReader* reader = ReaderOf(object);
    return reader == nullptr ? -1 : reader->NativeChildren() + PartOf(object);
}

void AddIf(AtkStateSet* states, bool holds, AtkStateType state) {
    if (holds) atk_state_set_add_state(states, state);
}

AtkStateSet* RefPartStates(AtkObject* object) {
    AtkStateSet* states = gPartBase->ref_state_set(object);
    SpokenReader* reader = ReaderOf(object);
    const int part = PartOf(object);
    if (reader == nullptr || part >= reader->Source().PartCount()) {
        atk_state_set_add_state(states, ATK_STATE_DEFUNCT);
        return states;
    }
    const Spoken words = reader->Source().Part(part);
    const bool cell = words.role == SpokenRole::Cell;
    const bool current = reader->IsCurrent(part);
    AddIf(states, words.enabled, ATK_STATE_ENABLED);
    AddIf(states, words.enabled, ATK_STATE_SENSITIVE);
    AddIf(states, words.shown, ATK_STATE_VISIBLE);
    AddIf(states, words.shown && reader->IsShown() && !reader->Source().PlaceOf(part).IsEmpty(),
          ATK_STATE_SHOWING);
    AddIf(states, cell || (words.role == SpokenRole::Button && words.enabled), ATK_STATE_FOCUSABLE);
    AddIf(states, current && reader->HasKeyboard(), ATK_STATE_FOCUSED);
    AddIf(states, cell, ATK_STATE_SELECTABLE);
    AddIf(states, cell && current, ATK_STATE_SELECTED);
    AddIf(states, cell, ATK_STATE_TRANSIENT);
    AddIf(states, cell && !words.locked, ATK_STATE_EDITABLE);
    AddIf(states, cell && words.locked, ATK_STATE_READ_ONLY);
    AddIf(states, words.hasList, ATK_STATE_HAS_POPUP);
    return states;
}

void PartExtents(AtkComponent* component, gint* x, gint* y, gint* width, gint* height,
                 AtkCoordType from) {
    *x = *y = *width = *height = 0;
    SpokenReader* reader = ReaderOf(component);
    if (reader == nullptr || PartOf(component) >= reader->Source().PartCount()) return;
    const wxRect place = reader->Source().PlaceOf(PartOf(component));
    atk_component_get_extents(ATK_COMPONENT(reader->Whole()), x, y, nullptr, nullptr, from);
    *x += place.x;
    *y += place.y;
    *width = place.width;
    *height = place.height;
}

void FillPartComponent(gpointer interface, gpointer /*data*/) {
    static_cast<AtkComponentIface*>(interface)->get_extents = PartExtents;
}

void FillPart(gpointer type, gpointer /*data*/) {
    auto* object = static_cast<AtkObjectClass*>(type);
    gPartBase = static_cast<AtkObjectClass*>(g_type_class_ref(ATK_TYPE_OBJECT));
    G_OBJECT_CLASS(object)->finalize = EndPart;
    object->get_name = GetName;
    object->get_description = GetDescription;
    object->get_role = GetRole;
    object->get_index_in_parent = IndexInParent;
    object->ref_state_set = RefPartStates;
}

// The types, each made once.

GType MakeType(GType parent, const char* name, std::size_t size, GClassInitFunc fill) {
    GTypeQuery query{};
    g_type_query(parent, &query);
    return g_type_register_static_simple(parent, name, query.class_size, fill,
                                         static_cast<guint>(size), nullptr, GTypeFlags(0));
}

GType WithInterface(GType type, GType interface, GInterfaceInitFunc fill) {
    const GInterfaceInfo info{fill, nullptr, nullptr};
    g_type_add_interface_static(type, interface, &info);
    return type;
}

GType DrawnType() {
    static const GType type = WithInterface(
        MakeType(GTK_TYPE_CONTAINER_ACCESSIBLE, "KelvaneDrawn", sizeof(DrawnObject), FillDrawn),
        ATK_TYPE_COMPONENT, FillDrawnComponent);
    return type;
}

GType PartType() {
    static const GType type =
        WithInterface(MakeType(ATK_TYPE_OBJECT, "KelvanePart", sizeof(PartObject), FillPart),
                      ATK_TYPE_COMPONENT, FillPartComponent);
    return type;
}

}  // namespace

GType DrawnTypeFor(SpokenRole role) {
    static const GType table =
        WithInterface(MakeType(DrawnType(), "KelvaneDrawnTable", sizeof(DrawnObject), nullptr),
                      ATK_TYPE_TABLE, FillTable);
    static const GType button =
        WithInterface(MakeType(DrawnType(), "KelvaneDrawnButton", sizeof(DrawnObject), nullptr),
                      ATK_TYPE_ACTION, FillAction);
    if (role == SpokenRole::Table) return table;
    return role == SpokenRole::Button ? button : DrawnType();
}

GType PartTypeFor(SpokenRole role) {
    static const GType cell =
        WithInterface(MakeType(PartType(), "KelvaneCell", sizeof(PartObject), nullptr),
                      ATK_TYPE_TABLE_CELL, FillCell);
    static const GType button =
        WithInterface(MakeType(PartType(), "KelvanePartButton", sizeof(PartObject), nullptr),
                      ATK_TYPE_ACTION, FillAction);
    if (role == SpokenRole::Cell) return cell;
    return role == SpokenRole::Button ? button : PartType();
}

SpokenReader* ReaderOf(gpointer object) {
    const bool drawn = g_type_is_a(G_TYPE_FROM_INSTANCE(object), DrawnType()) != FALSE;
    return drawn ? static_cast<DrawnObject*>(object)->reader
                 : static_cast<PartObject*>(object)->reader;
}

int PartOf(gpointer object) {
    const bool drawn = g_type_is_a(G_TYPE_FROM_INSTANCE(object), DrawnType()) != FALSE;
    return drawn ? SpokenSource::kWhole : static_cast<PartObject*>(object)->part;
}

}  // namespace kelvane::desktop
