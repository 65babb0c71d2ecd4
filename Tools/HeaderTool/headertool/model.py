"""What the parser finds in a header: the reflected types and their members."""

from dataclasses import dataclass, field


@dataclass
class Specifier:
    key: str
    value: object = None    # None, a string, or a list of Specifier for "key=(...)"
    line: int = 0


@dataclass
class TypeRef:
    """A C++ type as written, reduced to what decides its property kind."""
    name: str                       # "FString", "TArray", "int32", "UObject", ...
    arguments: list = field(default_factory=list)   # TypeRef of template arguments
    is_const: bool = False
    is_pointer: bool = False
    is_reference: bool = False
    text: str = ""                  # the type as written, for messages and generated code

    def cpp(self):
        return self.text


@dataclass
class PropertyDecl:
    name: str
    type: TypeRef
    line: int
    specifiers: list = field(default_factory=list)
    metadata: list = field(default_factory=list)     # (key, value) in order
    comment: str = ""
    access: str = "public"
    array_dim: str = ""             # the C array size expression, "" for none
    is_bitfield: bool = False
    conditions: tuple = ()


@dataclass
class ParameterDecl:
    name: str
    type: TypeRef
    default: str = ""
    specifiers: list = field(default_factory=list)   # from UPARAM(...)


@dataclass
class FunctionDecl:
    name: str
    return_type: TypeRef
    parameters: list
    line: int
    specifiers: list = field(default_factory=list)
    metadata: list = field(default_factory=list)
    comment: str = ""
    access: str = "public"
    is_static: bool = False
    is_const: bool = False
    is_virtual: bool = False
    conditions: tuple = ()


@dataclass
class Enumerator:
    name: str
    value_text: str                 # as written, or "" for "one more than the previous"
    line: int
    metadata: list = field(default_factory=list)
    comment: str = ""
    conditions: tuple = ()


@dataclass
class EnumDecl:
    name: str
    line: int
    cpp_form: str                   # "Regular", "Namespaced" or "EnumClass"
    underlying: str                 # "" when not written
    enumerators: list = field(default_factory=list)
    specifiers: list = field(default_factory=list)
    metadata: list = field(default_factory=list)
    comment: str = ""


@dataclass
class ConstructorInfo:
    has_default: bool = False
    has_object_initializer: bool = False
    has_destructor: bool = False


@dataclass
class ClassDecl:
    kind: str                       # "class", "struct", "interface" (the U side) or "native_interface" (the I side)
    name: str
    line: int
    super_name: str = ""
    api_macro: str = ""
    interfaces: list = field(default_factory=list)   # names of I-classes this class implements
    specifiers: list = field(default_factory=list)
    metadata: list = field(default_factory=list)
    comment: str = ""
    body_macro: str = ""            # "GENERATED_BODY", "GENERATED_UCLASS_BODY", ...
    body_line: int = 0
    properties: list = field(default_factory=list)
    functions: list = field(default_factory=list)
    constructors: ConstructorInfo = field(default_factory=ConstructorInfo)


@dataclass
class HeaderModel:
    file_name: str
    file_id: str
    module: str
    module_relative_path: str
    include_path: str
    classes: list = field(default_factory=list)      # ClassDecl, in order, also structs and interfaces
    enums: list = field(default_factory=list)
