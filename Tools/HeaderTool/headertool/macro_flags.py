"""Turns the specifiers of the reflection macros into the engine's flags and metadata."""

from .errors import HeaderError

# Property specifiers and the EPropertyFlags they set.
PROPERTY_FLAG_SPECIFIERS = {
    "editanywhere": ["CPF_Edit"],
    "editinstanceonly": ["CPF_Edit", "CPF_DisableEditOnTemplate"],
    "editdefaultsonly": ["CPF_Edit", "CPF_DisableEditOnInstance"],
    "visibleanywhere": ["CPF_Edit", "CPF_EditConst"],
    "visibleinstanceonly": ["CPF_Edit", "CPF_EditConst", "CPF_DisableEditOnTemplate"],
    "visibledefaultsonly": ["CPF_Edit", "CPF_EditConst", "CPF_DisableEditOnInstance"],
    "blueprintreadwrite": ["CPF_BlueprintVisible"],
    "blueprintreadonly": ["CPF_BlueprintVisible", "CPF_BlueprintReadOnly"],
    "blueprintassignable": ["CPF_BlueprintAssignable"],
    "blueprintcallable": ["CPF_BlueprintCallable"],
    "blueprintauthorityonly": ["CPF_BlueprintAuthorityOnly"],
    "config": ["CPF_Config"],
    "globalconfig": ["CPF_GlobalConfig", "CPF_Config"],
    "transient": ["CPF_Transient"],
    "duplicatetransient": ["CPF_DuplicateTransient"],
    "nonpieduplicatetransient": ["CPF_NonPIEDuplicateTransient"],
    "textexporttransient": ["CPF_TextExportTransient"],
    "savegame": ["CPF_SaveGame"],
    "replicated": ["CPF_Net"],
    "notreplicated": ["CPF_RepSkip"],
    "interp": ["CPF_Edit", "CPF_BlueprintVisible", "CPF_Interp"],
    "nontransactional": ["CPF_NonTransactional"],
    "instanced": ["CPF_PersistentInstance", "CPF_ExportObject", "CPF_InstancedReference"],
    "export": ["CPF_ExportObject"],
    "noclear": ["CPF_NoClear"],
    "editfixedsize": ["CPF_EditFixedSize"],
    "assetregistrysearchable": ["CPF_AssetRegistrySearchable"],
    "simpledisplay": ["CPF_SimpleDisplay"],
    "advanceddisplay": ["CPF_AdvancedDisplay"],
    "skipserialization": ["CPF_SkipSerialization"],
    "const": ["CPF_EditConst"],
    "exposeonspawn": ["CPF_ExposeOnSpawn"],
}

# Specifiers whose value becomes metadata under the same key.
PROPERTY_VALUE_METADATA = {"blueprintgetter": "BlueprintGetter", "blueprintsetter": "BlueprintSetter"}

ACCESS_FLAGS = {
    "public": "CPF_NativeAccessSpecifierPublic",
    "protected": "CPF_NativeAccessSpecifierProtected",
    "private": "CPF_NativeAccessSpecifierPrivate",
}

CLASS_FLAG_SPECIFIERS = {
    "abstract": ["CLASS_Abstract"],
    "defaultconfig": ["CLASS_DefaultConfig"],
    "globaluserconfig": ["CLASS_GlobalUserConfig"],
    "projectuserconfig": ["CLASS_ProjectUserConfig"],
    "perobjectconfig": ["CLASS_PerObjectConfig"],
    "configdonotcheckdefaults": ["CLASS_ConfigDoNotCheckDefaults"],
    "transient": ["CLASS_Transient"],
    "optional": ["CLASS_Optional"],
    "deprecated": ["CLASS_Deprecated"],
    "editinlinenew": ["CLASS_EditInlineNew"],
    "notplaceable": ["CLASS_NotPlaceable"],
    "collapsecategories": ["CLASS_CollapseCategories"],
    "defaulttoinstanced": ["CLASS_DefaultToInstanced"],
    "hidedropdown": ["CLASS_HideDropDown"],
    "hidden": ["CLASS_Hidden"],
    "const": ["CLASS_Const"],
    "minimalapi": ["CLASS_MinimalAPI"],
}
# Specifiers that are accepted and only undo an inherited choice, or only matter to the engine's tools.
CLASS_NEUTRAL_SPECIFIERS = {"nontransient", "placeable", "noteditinlinenew", "dontcollapsecategories",
                            "customconstructor", "intrinsic", "noexport", "notblueprintable", "sparseclassdatatypes",
                            "showfunctions", "hidefunctions", "conversionroot", "dependson", "customfieldnotify"}
CLASS_CATEGORY_LISTS = {"hidecategories": "HideCategories", "showcategories": "ShowCategories",
                        "autoexpandcategories": "AutoExpandCategories",
                        "autocollapsecategories": "AutoCollapseCategories",
                        "prioritizecategories": "PrioritizeCategories",
                        "advancedclassdisplay": "AdvancedClassDisplay", "classgroup": "ClassGroupNames"}

FUNCTION_FLAG_SPECIFIERS = {
    "blueprintcallable": ["FUNC_BlueprintCallable"],
    "blueprintpure": ["FUNC_BlueprintCallable", "FUNC_BlueprintPure"],
    "blueprintimplementableevent": ["FUNC_Event", "FUNC_BlueprintEvent"],
    "blueprintnativeevent": ["FUNC_Event", "FUNC_BlueprintEvent"],
    "blueprintauthorityonly": ["FUNC_BlueprintAuthorityOnly"],
    "blueprintcosmetic": ["FUNC_BlueprintCosmetic"],
    "exec": ["FUNC_Exec"],
    "server": ["FUNC_Net", "FUNC_NetServer"],
    "client": ["FUNC_Net", "FUNC_NetClient"],
    "netmulticast": ["FUNC_Net", "FUNC_NetMulticast"],
    "reliable": ["FUNC_NetReliable"],
    "unreliable": [],
    "withvalidation": ["FUNC_NetValidate"],
    "callineditor": [],
    "sealedevent": [],
    "blueprintgetter": ["FUNC_BlueprintCallable", "FUNC_BlueprintPure"],
    "blueprintsetter": ["FUNC_BlueprintCallable"],
}

STRUCT_NEUTRAL_SPECIFIERS = {"atomic", "immutable", "noexport", "blueprintinternaluseonlyhierarchical"}
ENUM_NEUTRAL_SPECIFIERS = {"flags"}


def _error(file_name, specifier, message):
    raise HeaderError(file_name, specifier.line, message)


def _metadata_from_meta(specifier, file_name):
    if not isinstance(specifier.value, list):
        _error(file_name, specifier, "meta must be a list in parentheses: meta=(Key=\"Value\")")
    entries = []
    for entry in specifier.value:
        if isinstance(entry.value, list):
            _error(file_name, entry, "metadata value of '%s' must be text" % entry.key)
        entries.append((entry.key, "true" if entry.value is None else entry.value))
    return entries


def _value_text(specifier, file_name):
    if specifier.value is None:
        _error(file_name, specifier, "specifier '%s' needs a value" % specifier.key)
    if isinstance(specifier.value, list):
        return " ".join(entry.key if entry.value is None else "%s=%s" % (entry.key, entry.value)
                        for entry in specifier.value)
    return specifier.value


def tooltip_from_comment(comment):
    """The tooltip the engine derives from a declaration's comment: markers gone, lines trimmed."""
    if not comment or comment.startswith("//~"):
        return ""
    lines = []
    if comment.startswith("/*"):
        body = comment[3:] if comment.startswith("/**") else comment[2:]
        body = body[:-2] if body.endswith("*/") else body
        for line in body.split("\n"):
            line = line.strip()
            if line.startswith("*"):
                line = line.lstrip("*").strip()
            lines.append(line)
    else:
        for line in comment.split("\n"):
            line = line.strip()
            while line.startswith("/"):
                line = line[1:]
            lines.append(line.strip())
    while lines and not lines[0]:
        lines.pop(0)
    while lines and not lines[-1]:
        lines.pop()
    return "\n".join(lines)


def comment_metadata(comment):
    """The raw comment, each line trimmed at its start, as the engine keeps it next to the tooltip."""
    if not comment or comment.startswith("//~"):
        return ""
    return "\n".join(line.strip() for line in comment.split("\n"))


def finish_metadata(entries, comment, module_relative_path):
    """Adds the comment-derived entries and returns the metadata sorted by key, later entries winning."""
    merged = {}
    for key, value in entries:
        merged[key] = value
    tooltip = tooltip_from_comment(comment)
    if tooltip and "ToolTip" not in merged:
        merged["ToolTip"] = tooltip
    raw_comment = comment_metadata(comment)
    if raw_comment and "Comment" not in merged:
        merged["Comment"] = raw_comment
    if module_relative_path:
        merged["ModuleRelativePath"] = module_relative_path
    return sorted(merged.items(), key=lambda item: item[0].lower())


def property_flags(prop, file_name):
    """EPropertyFlags names, metadata and the RepNotify function of a UPROPERTY."""
    flags = []
    metadata = []
    rep_notify = ""
    for specifier in prop.specifiers:
        key = specifier.key.lower()
        if key == "meta":
            metadata += _metadata_from_meta(specifier, file_name)
        elif key == "category":
            metadata.append(("Category", _value_text(specifier, file_name)))
        elif key == "replicatedusing":
            flags += ["CPF_Net", "CPF_RepNotify"]
            rep_notify = _value_text(specifier, file_name)
        elif key in PROPERTY_VALUE_METADATA:
            metadata.append((PROPERTY_VALUE_METADATA[key], _value_text(specifier, file_name)))
            if key == "blueprintgetter" and "CPF_BlueprintVisible" not in flags:
                flags += ["CPF_BlueprintVisible"]
        elif key in PROPERTY_FLAG_SPECIFIERS:
            if specifier.value is not None:
                _error(file_name, specifier, "specifier '%s' takes no value" % specifier.key)
            flags += PROPERTY_FLAG_SPECIFIERS[key]
        elif key in ("fieldnotify", "hideselfpin", "ref", "localized", "nonpietransient", "setter", "getter"):
            pass
        else:
            _error(file_name, specifier, "unknown UPROPERTY specifier '%s'" % specifier.key)
    if "CPF_BlueprintReadOnly" in flags and flags.count("CPF_BlueprintVisible") and any(
            s.key.lower() == "blueprintreadwrite" for s in prop.specifiers):
        raise HeaderError(file_name, prop.line, "BlueprintReadWrite and BlueprintReadOnly cannot both be given")
    edit_specifiers = [s.key for s in prop.specifiers if s.key.lower().startswith(("edit", "visible"))
                       and s.key.lower() != "editfixedsize"]
    if len(edit_specifiers) > 1:
        raise HeaderError(file_name, prop.line, "only one of %s may be given" % ", ".join(edit_specifiers))
    if "WITH_EDITORONLY_DATA" in prop.conditions:
        flags.append("CPF_EditorOnly")
    flags.append(ACCESS_FLAGS[prop.access])
    return _unique(flags), metadata, rep_notify


def class_flags(decl, file_name):
    """EClassFlags names, the config name, the Within class and the metadata of a UCLASS or UINTERFACE."""
    flags = []
    metadata = []
    config_name = ""
    within = ""
    for specifier in decl.specifiers:
        key = specifier.key.lower()
        if key == "meta":
            metadata += _metadata_from_meta(specifier, file_name)
        elif key == "config":
            config_name = _value_text(specifier, file_name)
            flags.append("CLASS_Config")
        elif key == "within":
            within = _value_text(specifier, file_name)
        elif key == "blueprinttype":
            metadata.append(("BlueprintType", "true"))
        elif key == "notblueprinttype":
            metadata.append(("NotBlueprintType", "true"))
        elif key == "blueprintable":
            metadata += [("IsBlueprintBase", "true"), ("BlueprintType", "true")]
        elif key == "notblueprintable":
            metadata.append(("IsBlueprintBase", "false"))
        elif key in CLASS_CATEGORY_LISTS:
            metadata.append((CLASS_CATEGORY_LISTS[key], _value_text(specifier, file_name)))
        elif key == "displayname":
            metadata.append(("DisplayName", _value_text(specifier, file_name)))
        elif key in CLASS_FLAG_SPECIFIERS:
            flags += CLASS_FLAG_SPECIFIERS[key]
        elif key in CLASS_NEUTRAL_SPECIFIERS:
            pass
        else:
            _error(file_name, specifier, "unknown %s specifier '%s'"
                   % ("UINTERFACE" if decl.kind == "interface" else "UCLASS", specifier.key))
    if decl.kind == "interface":
        flags += ["CLASS_Interface", "CLASS_Abstract"]
    if decl.api_macro and decl.api_macro != "NO_API":
        flags.append("CLASS_RequiredAPI")
    return _unique(flags), config_name, within, metadata


def struct_metadata(decl, file_name):
    metadata = []
    for specifier in decl.specifiers:
        key = specifier.key.lower()
        if key == "meta":
            metadata += _metadata_from_meta(specifier, file_name)
        elif key == "blueprinttype":
            metadata.append(("BlueprintType", "true"))
        elif key in STRUCT_NEUTRAL_SPECIFIERS:
            pass
        else:
            _error(file_name, specifier, "unknown USTRUCT specifier '%s'" % specifier.key)
    return metadata


def enum_metadata(decl, file_name):
    metadata = []
    bit_flags = False
    for specifier in decl.specifiers:
        key = specifier.key.lower()
        if key == "meta":
            metadata += _metadata_from_meta(specifier, file_name)
            bit_flags = bit_flags or any(k == "Bitflags" for k, _ in metadata)
        elif key == "blueprinttype":
            metadata.append(("BlueprintType", "true"))
        elif key == "flags":
            bit_flags = True
        elif key in ENUM_NEUTRAL_SPECIFIERS:
            pass
        else:
            _error(file_name, specifier, "unknown UENUM specifier '%s'" % specifier.key)
    return metadata, bit_flags


def enumerator_metadata(enumerator, file_name):
    """Metadata of one enumerator, its keys still without the enumerator's name in front."""
    entries = []
    for specifier in enumerator.metadata:
        if isinstance(specifier.value, list):
            _error(file_name, specifier, "UMETA value of '%s' must be text" % specifier.key)
        entries.append((specifier.key, "" if specifier.value is None else specifier.value))
    return entries


def function_flags(decl, file_name):
    flags = ["FUNC_Native"]
    metadata = []
    for specifier in decl.specifiers:
        key = specifier.key.lower()
        if key == "meta":
            metadata += _metadata_from_meta(specifier, file_name)
        elif key == "category":
            metadata.append(("Category", _value_text(specifier, file_name)))
        elif key == "callineditor":
            metadata.append(("CallInEditor", "true"))
        elif key in FUNCTION_FLAG_SPECIFIERS:
            flags += FUNCTION_FLAG_SPECIFIERS[key]
        else:
            _error(file_name, specifier, "unknown UFUNCTION specifier '%s'" % specifier.key)
    if any(s.key.lower() == "blueprintimplementableevent" for s in decl.specifiers):
        flags.remove("FUNC_Native")
    flags.append({"public": "FUNC_Public", "protected": "FUNC_Protected", "private": "FUNC_Private"}[decl.access])
    if decl.is_static:
        flags.append("FUNC_Static")
    # What Blueprints can't override is final: plain functions, but not virtual ones, events or RPCs.
    if not decl.is_virtual and not any(f in flags for f in ("FUNC_Event", "FUNC_BlueprintEvent", "FUNC_Net")):
        flags.append("FUNC_Final")
    if decl.is_const:
        flags.append("FUNC_Const")
    if "WITH_EDITOR" in decl.conditions or "WITH_EDITORONLY_DATA" in decl.conditions:
        flags.append("FUNC_EditorOnly")
    return _unique(flags), metadata


def _unique(names):
    seen = []
    for name in names:
        if name not in seen:
            seen.append(name)
    return seen
