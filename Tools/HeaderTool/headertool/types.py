"""Which property class stands for a C++ type: the reflection data names the kind, the runtime builds it."""

from dataclasses import dataclass

from .errors import HeaderError

NUMERIC_KINDS = {
    "int8": "Int8", "int16": "Int16", "int32": "Int", "int": "Int", "int64": "Int64",
    "uint8": "Byte", "uint16": "UInt16", "uint32": "UInt32", "uint64": "UInt64",
    "float": "Float", "double": "Double",
}
BITFIELD_STORAGE = ("uint8", "uint16", "uint32", "uint64")
SIMPLE_KINDS = {"bool": "Bool", "FString": "Str", "FName": "Name"}


@dataclass
class PropertyKind:
    gen_flag: str               # the EPropertyGenFlags enumerator
    cpp_type: str               # the C++ type, as a parameter block would hold it
    enum_type: str = ""         # Byte and Enum: the reflected enum
    inner: object = None        # Array: the element's PropertyKind
    bitfield_storage: str = ""  # Bool declared as "uint8 bFlag : 1"


def looks_like_enum(name):
    base = name.split("::")[0]
    return len(base) > 1 and base[0] == "E" and base[1].isupper()


def resolve_kind(type_ref, file_name, line, what, is_bitfield=False, known_enums=None, allow_container=True):
    """The PropertyKind of a member or parameter type, or a clear error for a type the stand-in can't reflect yet."""
    known_enums = known_enums or {}
    name = type_ref.name
    if is_bitfield:
        if name not in BITFIELD_STORAGE or type_ref.arguments or type_ref.is_pointer:
            raise HeaderError(file_name, line, "bitfield %s must be declared as uint8, uint16, uint32 or uint64"
                              % what)
        return PropertyKind("Bool", "bool", bitfield_storage=name)
    if type_ref.is_pointer:
        raise HeaderError(file_name, line, "%s has type '%s': object references are not reflected by the stand-in yet"
                          % (what, type_ref.text))
    if name in SIMPLE_KINDS and not type_ref.arguments:
        return PropertyKind(SIMPLE_KINDS[name], name)
    if name in NUMERIC_KINDS and not type_ref.arguments:
        return PropertyKind(NUMERIC_KINDS[name], "int32" if name == "int" else name)
    if name == "TArray":
        if not allow_container:
            raise HeaderError(file_name, line, "%s: arrays of arrays can't be reflected" % what)
        if len(type_ref.arguments) != 1:
            raise HeaderError(file_name, line, "%s: TArray with a custom allocator can't be reflected" % what)
        inner = resolve_kind(type_ref.arguments[0], file_name, line, what, known_enums=known_enums,
                             allow_container=False)
        if inner.gen_flag == "Bool" and inner.bitfield_storage:
            raise HeaderError(file_name, line, "%s: arrays of bitfields can't be reflected" % what)
        return PropertyKind("Array", "TArray<%s>" % inner.cpp_type, inner=inner)
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
    raise HeaderError(file_name, line, "%s has type '%s', which the stand-in can't reflect yet" % (what, type_ref.text))
