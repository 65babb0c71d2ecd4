"""Writes <Name>.generated.h: the per-line body macros that GENERATED_BODY() expands to, and the
declarations that let other files reach a header's reflected enums and classes."""

from .macro_flags import class_flags


def _macro(lines):
    """A multi-line #define body, each line continued."""
    return " \\\n".join(lines)


def _api(decl):
    return decl.api_macro if decl.api_macro else "NO_API"


# The engine classes that casts test by flag, as the engine's header tool knows them.
CAST_FLAGS = {"AActor": "CASTCLASS_AActor", "APawn": "CASTCLASS_APawn", "APlayerController": "CASTCLASS_APlayerController",
              "ULevel": "CASTCLASS_ULevel", "USceneComponent": "CASTCLASS_USceneComponent",
              "UPrimitiveComponent": "CASTCLASS_UPrimitiveComponent", "UStaticMeshComponent": "CASTCLASS_UStaticMeshComponent",
              "USkinnedMeshComponent": "CASTCLASS_USkinnedMeshComponent",
              "USkeletalMeshComponent": "CASTCLASS_USkeletalMeshComponent", "UBlueprint": "CASTCLASS_UBlueprint"}


def _class_body(model, decl, file_name):
    flags, config_name, within, _ = class_flags(decl, file_name)
    api = _api(decl)
    flag_text = " | ".join(["0"] + flags)
    legacy = decl.body_macro in ("GENERATED_UCLASS_BODY", "GENERATED_UINTERFACE_BODY")
    lines = ["public:",
             "\tDECLARE_CLASS(%s, %s, COMPILED_IN_FLAGS(%s), %s, TEXT(\"/Script/%s\"), %s)"
             % (decl.name, decl.super_name, flag_text, CAST_FLAGS.get(decl.name, "CASTCLASS_None"), model.module, api)]
    if config_name:
        lines.append("\tstatic const TCHAR* StaticConfigName() { return TEXT(\"%s\"); }" % config_name)
    if within:
        lines.append("\tDECLARE_WITHIN(%s)" % within)
    lines.append("\tfriend struct Z_Construct_UClass_%s_Statics;" % decl.name)
    ctors = decl.constructors
    if legacy:
        lines.append("\t%s %s(const FObjectInitializer& ObjectInitializer);" % (api, decl.name))
        lines.append("\tDEFINE_DEFAULT_OBJECT_INITIALIZER_CONSTRUCTOR_CALL(%s)" % decl.name)
    elif ctors.has_object_initializer:
        lines.append("\tDEFINE_DEFAULT_OBJECT_INITIALIZER_CONSTRUCTOR_CALL(%s)" % decl.name)
    elif ctors.has_default:
        lines.append("\tDEFINE_DEFAULT_CONSTRUCTOR_CALL(%s)" % decl.name)
    else:
        lines.append("\t%s %s(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());"
                     % (api, decl.name))
        lines.append("\tDEFINE_DEFAULT_OBJECT_INITIALIZER_CONSTRUCTOR_CALL(%s)" % decl.name)
    lines += ["private:",
              "\t%s(%s&&) = delete;" % (decl.name, decl.name),
              "\t%s(const %s&) = delete;" % (decl.name, decl.name),
              "public:"]
    if not ctors.has_destructor:
        lines.append("\t%s virtual ~%s();" % (api, decl.name))
    if decl.interfaces:
        lines.append("\tvirtual UObject* _getUObject() const override { return const_cast<%s*>(this); }" % decl.name)
    lines.append("public:" if legacy else "private:")
    return lines


def _native_interface_body(decl):
    legacy = decl.body_macro == "GENERATED_IINTERFACE_BODY"
    return ["protected:",
            "\tvirtual ~%s() {}" % decl.name,
            "public:",
            "\ttypedef %s UClassType;" % decl.super_name,
            "\ttypedef %s ThisClass;" % decl.name,
            "\tvirtual UObject* _getUObject() const { checkf(false, TEXT(\"%s is implemented by a class without "
            "its generated body\")); return nullptr; }" % decl.name,
            "public:" if legacy else "private:"]


def _struct_body(decl):
    lines = ["\tfriend struct Z_Construct_UScriptStruct_%s_Statics;" % decl.name,
             "\tstatic class UScriptStruct* StaticStruct();"]
    if decl.super_name:
        lines.append("\ttypedef %s Super;" % decl.super_name)
    return lines


def _enum_forward_declaration(enum):
    if enum.cpp_form == "EnumClass":
        return "enum class %s%s;" % (enum.name, " : " + enum.underlying if enum.underlying else "")
    if not enum.underlying:
        return ""
    if enum.cpp_form == "Namespaced":
        return "namespace %s { enum Type : %s; }" % (enum.name, enum.underlying)
    return "enum %s : %s;" % (enum.name, enum.underlying)


def enum_cpp_type(enum):
    return enum.name + "::Type" if enum.cpp_form == "Namespaced" else enum.name


def module_api(model):
    """The module's export macro, used only when the header itself uses it."""
    candidate = model.module.upper() + "_API"
    return candidate if any(decl.api_macro == candidate for decl in model.classes) else ""


def write_generated_header(model, source_name):
    guard = "%s_%s_generated_h" % (model.module.upper(), model.file_id)
    base = source_name.rsplit(".", 1)[0]
    api = module_api(model)
    out = ["// Reflection boilerplate of %s, written by the header tool from its macros. Do not edit." % source_name,
           "",
           "#include \"UObject/ObjectMacros.h\"",
           "#include \"UObject/ScriptMacros.h\"",
           "",
           "#ifdef %s" % guard,
           "#error \"%s.generated.h already included: %s needs '#pragma once'\"" % (base, source_name),
           "#endif",
           "#define %s" % guard,
           "",
           "#undef CURRENT_FILE_ID",
           "#define CURRENT_FILE_ID %s" % model.file_id,
           ""]
    for decl in model.classes:
        if not decl.body_macro:
            # A noexport struct: the type is declared elsewhere, only its reflection is made here.
            out.append("// %s" % decl.name)
            out.append("template<> %s UScriptStruct* StaticStruct<%s>();" % (api, decl.name))
            out.append("")
            continue
        macro_name = "%s_%d_%s" % (model.file_id, decl.body_line, decl.body_macro)
        if decl.kind in ("class", "interface"):
            body = _class_body(model, decl, model.file_name)
        elif decl.kind == "native_interface":
            body = _native_interface_body(decl)
        else:
            body = _struct_body(decl)
        out.append("// %s" % decl.name)
        out.append("#define %s \\\n%s" % (macro_name, _macro(body)))
        out.append("")
        if decl.kind in ("class", "interface"):
            out.append("template<> %s UClass* StaticClass<class %s>();" % (decl.api_macro or "", decl.name))
        elif decl.kind == "struct":
            out.append("template<> %s UScriptStruct* StaticStruct<struct %s>();" % (api, decl.name))
        out.append("")
    for enum in model.enums:
        cpp_type = enum_cpp_type(enum)
        out.append("// %s" % enum.name)
        entries = ["\top(%s::%s)" % (enum.name, e.name) for e in enum.enumerators if not e.conditions]
        out.append("#define FOREACH_ENUM_%s(op) \\\n%s" % (enum.name.upper(), _macro(entries)))
        forward = _enum_forward_declaration(enum)
        if forward:
            out.append(forward)
            out.append("template<> %s UEnum* StaticEnum<%s>();" % (api, cpp_type))
        out.append("")
    return "\n".join(out).replace("template<>  ", "template<> ") + "\n"
