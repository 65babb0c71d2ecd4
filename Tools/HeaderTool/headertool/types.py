"""Which property class stands for a C++ type: the reflection data names the kind, the runtime builds it."""

from dataclasses import dataclass

from .errors import HeaderError

NUMERIC_KINDS = {
    "int8": "Int8", "int16": "Int16", "int32": "Int", "int": "Int", "int64": "Int64",
    "uint8": "Byte", "uint16": "UInt16", "uint32": "UInt32", "uint64": "UInt64",
    "float": "Float", "double": "Double",
}
BITFIELD_STORAGE = ("uint8", "uint16", "uint32", "uint64")
SIMPLE_KINDS = {"bool": "Bool", "FString": "Str", "FName": "Name", "FText": "Text"}
# Object references written as a template of the referred class.
OBJECT_TEMPLATES = {"TObjectPtr": "Object", "TWeakObjectPtr": "WeakObject", "TSoftObjectPtr": "SoftObject",
                    "TSubclassOf": "Class", "TSoftClassPtr": "SoftClass", "TScriptInterface": "Interface"}
# Kinds whose values can be set elements and map keys: they have GetTypeHash.
HASHABLE_KINDS = ("Byte", "Int8", "Int16", "Int", "Int64", "UInt16", "UInt32", "UInt64", "Float", "Double", "Bool",
                  "Str", "Name", "Object", "Class", "WeakObject", "SoftObject", "SoftClass", "Enum", "Struct")


@dataclass
class PropertyKind:
    gen_flag: str               # the EPropertyGenFlags enumerator
    cpp_type: str               # the C++ type, as a parameter block or container would hold it
    enum_type: str = ""         # Byte and Enum: the reflected enum
    inner: object = None        # Array and Set: the element's PropertyKind; Map: the key's
    value: object = None        # Map: the value's PropertyKind
    bitfield_storage: str = ""  # Bool declared as "uint8 bFlag : 1"
    object_class: str = ""      # object kinds: the C++ class referred to (Interface: the U side)
    meta_class: str = ""        # Class and SoftClass: the class the value must derive from
    struct_type: str = ""       # Struct: the C++ struct


def looks_like_enum(name):
    base = name.split("::")[0]
    return len(base) > 1 and base[0] == "E" and base[1].isupper()


def looks_like_class(name):
    return len(name) > 1 and name[0] in ("U", "A") and name[1].isupper()


def looks_like_struct(name):
    return len(name) > 1 and name[0] == "F" and name[1].isupper()


def object_kind(kind_name, class_name, cpp_type):
    if kind_name == "Class" or (kind_name == "Object" and class_name == "UClass"):
        meta = class_name if kind_name == "Class" else "UObject"
        return PropertyKind("Class", cpp_type, object_class="UClass", meta_class=meta)
    if kind_name == "SoftClass":
        return PropertyKind("SoftClass", cpp_type, object_class="UClass", meta_class=class_name)
    if kind_name == "Interface":
        return PropertyKind("Interface", cpp_type, object_class="U" + class_name[1:])
    return PropertyKind(kind_name, cpp_type, object_class=class_name)


def resolve_kind(type_ref, file_name, line, what, is_bitfield=False, known_enums=None, allow_container=True):
    """The PropertyKind of a member or parameter type, or a clear error for a type the stand-in can't reflect."""
    known_enums = known_enums or {}
    name = type_ref.name
    if is_bitfield:
        if name not in BITFIELD_STORAGE or type_ref.arguments or type_ref.is_pointer:
            raise HeaderError(file_name, line, "bitfield %s must be declared as uint8, uint16, uint32 or uint64"
                              % what)
        return PropertyKind("Bool", "bool", bitfield_storage=name)
    if type_ref.is_pointer:
        if type_ref.arguments or not looks_like_class(name):
            raise HeaderError(file_name, line, "%s has type '%s': only pointers to UObject classes can be reflected"
                              % (what, type_ref.text))
        return object_kind("Object", name, name + "*")
    if name in SIMPLE_KINDS and not type_ref.arguments:
        return PropertyKind(SIMPLE_KINDS[name], name)
    if name in NUMERIC_KINDS and not type_ref.arguments:
        return PropertyKind(NUMERIC_KINDS[name], "int32" if name == "int" else name)
    if name in OBJECT_TEMPLATES:
        if len(type_ref.arguments) != 1:
            raise HeaderError(file_name, line, "%s: %s takes one class" % (what, name))
        argument = type_ref.arguments[0]
        valid = looks_like_class(argument.name) if name != "TScriptInterface" else (
            len(argument.name) > 1 and argument.name[0] == "I" and argument.name[1].isupper())
        if not valid or argument.arguments or argument.is_pointer:
            raise HeaderError(file_name, line, "%s: '%s' is not a reflected class" % (what, argument.text))
        return object_kind(OBJECT_TEMPLATES[name], argument.name, "%s<%s>" % (name, argument.name))
    if name == "TArray":
        if not allow_container:
            raise HeaderError(file_name, line, "%s: containers of containers can't be reflected" % what)
        if len(type_ref.arguments) != 1:
            raise HeaderError(file_name, line, "%s: TArray with a custom allocator can't be reflected" % what)
        inner = resolve_kind(type_ref.arguments[0], file_name, line, what, known_enums=known_enums,
                             allow_container=False)
        if inner.gen_flag == "Bool" and inner.bitfield_storage:
            raise HeaderError(file_name, line, "%s: arrays of bitfields can't be reflected" % what)
        return PropertyKind("Array", "TArray<%s>" % inner.cpp_type, inner=inner)
    if name in ("TSet", "TMap"):
        if not allow_container:
            raise HeaderError(file_name, line, "%s: containers of containers can't be reflected" % what)
        expected = 1 if name == "TSet" else 2
        if len(type_ref.arguments) != expected:
            raise HeaderError(file_name, line, "%s: %s takes %d types" % (what, name, expected))
        parts = [resolve_kind(argument, file_name, line, what, known_enums=known_enums, allow_container=False)
                 for argument in type_ref.arguments]
        if parts[0].gen_flag not in HASHABLE_KINDS:
            raise HeaderError(file_name, line, "%s: '%s' can't be a %s" % (
                what, type_ref.arguments[0].text, "set element" if name == "TSet" else "map key"))
        if name == "TSet":
            return PropertyKind("Set", "TSet<%s>" % parts[0].cpp_type, inner=parts[0])
        return PropertyKind("Map", "TMap<%s, %s>" % (parts[0].cpp_type, parts[1].cpp_type), inner=parts[0],
                            value=parts[1])
    if name == "TEnumAsByte":
        if len(type_ref.arguments) != 1:
            raise HeaderError(file_name, line, "%s: TEnumAsByte takes one enum" % what)
        enum_name = type_ref.arguments[0].name
        if enum_name.endswith("::Type"):
            enum_name = enum_name[:-len("::Type")]
        return PropertyKind("Byte", "TEnumAsByte<%s>" % type_ref.arguments[0].text, enum_type=enum_name)
    if looks_like_enum(name) and not type_ref.arguments:
        known = known_enums.get(name)
        if known is not None and known.cpp_form != "EnumClass" and not known.underlying:
            raise HeaderError(file_name, line, "%s: use TEnumAsByte<%s> or an enum class with an underlying type"
                              % (what, name))
        return PropertyKind("Enum", name, enum_type=name)
    if looks_like_struct(name) and not type_ref.arguments and "::" not in name:
        return PropertyKind("Struct", name, struct_type=name)
    raise HeaderError(file_name, line, "%s has type '%s', which the stand-in can't reflect yet" % (what, type_ref.text))
