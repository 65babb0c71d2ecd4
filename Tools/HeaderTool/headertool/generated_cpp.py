"""Writes <Name>.gen.cpp: the reflection data of a header's types as constant tables, and the
functions that build their UClass, UScriptStruct and UEnum objects from those tables."""

import os

from .errors import HeaderError
from .generated_header import enum_cpp_type, module_api
from .macro_flags import (class_flags, enum_metadata, enumerator_metadata, finish_metadata, function_flags,
                         property_flags, struct_metadata)
from .types import resolve_kind


def cpp_string(value):
    """A TEXT("...") literal holding value exactly."""
    escaped = (value.replace("\\", "\\\\").replace("\"", "\\\"").replace("\n", "\\n").replace("\r", "\\r")
               .replace("\t", "\\t"))
    return "TEXT(\"%s\")" % escaped


def _flags(names, none):
    return " | ".join(names) if names else none


def is_noexport(decl):
    return any(s.key.lower() == "noexport" for s in decl.specifiers)


def struct_flags(decl):
    flags = []
    keys = [s.key.lower() for s in decl.specifiers]
    if "noexport" in keys:
        flags.append("STRUCT_NoExport")
    if "immutable" in keys:
        flags += ["STRUCT_Immutable", "STRUCT_Atomic"]
    elif "atomic" in keys:
        flags.append("STRUCT_Atomic")
    return flags


def _strip_call(text, names):
    """The argument text of NAME(...) for one of the names, or None."""
    for name in names:
        if text.startswith(name + "(") and text.endswith(")"):
            return text[len(name) + 1:-1].strip()
    return None


def _unquote_literal(text):
    """The value of a (TEXT-wrapped) string literal, or None."""
    inner = _strip_call(text, ("TEXT",))
    if inner is not None:
        text = inner
    if len(text) >= 2 and text[0] == '"' and text[-1] == '"':
        return text[1:-1].replace('\\"', '"').replace("\\\\", "\\")
    return None


def _number_text(text):
    try:
        return "%f" % float(text.rstrip("fF"))
    except ValueError:
        return None


def default_value_text(default, kind):
    """A C++ default argument as the engine's header tool records it for the Blueprint editor
    (CPP_Default_ metadata): strings unquoted, floats as %f, NAME_None as None, colors and vectors as text."""
    text = default.strip()
    if text in ("nullptr", "NULL", "NAME_None"):
        return "None"
    for wrapper in ("FString", "FName", "FText::FromString", "INVTEXT"):
        inner = _strip_call(text, (wrapper,))
        if inner is not None:
            text = inner
            break
    literal = _unquote_literal(text)
    if literal is not None:
        return literal
    if text in ("true", "false"):
        return text
    if kind is not None and kind.gen_flag in ("Float", "Double"):
        number = _number_text(text)
        if number is not None:
            return number
    if kind is not None and kind.gen_flag == "Struct":
        arguments = _strip_call(text, (kind.struct_type,))
        if arguments is not None:
            numbers = [_number_text(part.strip()) for part in arguments.split(",") if part.strip()]
            if all(number is not None for number in numbers):
                if kind.struct_type == "FLinearColor" and len(numbers) in (3, 4):
                    numbers = numbers + ["1.000000"] * (4 - len(numbers))
                    return "(R=%s,G=%s,B=%s,A=%s)" % tuple(numbers)
                if kind.struct_type in ("FVector", "FRotator") and len(numbers) == 3:
                    return ",".join(numbers)
    return text


class _Guard:
    """Wraps emitted lines in the preprocessor condition the declaration sat under."""

    def __init__(self, out, conditions):
        self.out = out
        self.conditions = conditions

    def __enter__(self):
        for condition in self.conditions:
            self.out.append("#if %s" % condition)

    def __exit__(self, *args):
        for _ in self.conditions:
            self.out.append("#endif")


class CppWriter:
    def __init__(self, model):
        self.model = model
        self.file_name = model.file_name
        self.enums_by_name = {enum.name: enum for enum in model.enums}
        self.out = []
        self.referenced_classes = set()
        self.referenced_structs = set()

    def emit(self, line=""):
        self.out.append(line)

    # Metadata

    def emit_metadata(self, indent, variable, entries):
        """Emits a metadata table and returns the initializer fields that point at it."""
        if not entries:
            return []
        self.emit("%sstatic const FMetaDataPairParam %s[] = {" % (indent, variable))
        for key, value in entries:
            self.emit("%s\t{ %s, %s }," % (indent, cpp_string(key), cpp_string(value)))
        self.emit("%s};" % indent)
        return [".MetaData = %s" % variable, ".NumMetaData = %d" % len(entries)]

    # Properties

    def emit_property(self, indent, variable, owner, prop_name, kind, flags, metadata, offset_expr,
                      array_dim_expr, rep_notify="", set_bit_function=""):
        fields = [".Name = %s" % cpp_string(prop_name), ".Kind = EPropertyGenFlags::%s" % kind.gen_flag,
                  ".Flags = %s" % _flags(flags, "CPF_None"), ".Offset = %s" % offset_expr,
                  ".ArrayDim = %s" % array_dim_expr]
        if kind.gen_flag == "Bool":
            if kind.bitfield_storage:
                fields += [".BoolSize = sizeof(%s)" % kind.bitfield_storage, ".SetBitFunc = &%s_SetBit" % set_bit_function,
                           ".ClearBitFunc = &%s_ClearBit" % set_bit_function, ".OwnerSize = sizeof(%s)" % owner]
            else:
                fields += [".BoolSize = sizeof(bool)", ".bNativeBool = true"]
        if kind.gen_flag in ("Byte", "Enum") and kind.enum_type:
            enum = self.enums_by_name.get(kind.enum_type)
            enum_type = enum_cpp_type(enum) if enum is not None else kind.enum_type
            if kind.gen_flag == "Byte" and kind.cpp_type.startswith("TEnumAsByte<"):
                enum_type = kind.cpp_type[len("TEnumAsByte<"):-1]
            fields.append(".EnumFunc = &StaticEnum<%s>" % enum_type)
            if kind.gen_flag == "Enum":
                fields += [".EnumUnderlyingSize = sizeof(%s)" % enum_type,
                           ".bEnumUnderlyingSigned = (static_cast<%s>(-1) < static_cast<%s>(0))" % (enum_type, enum_type)]
        if kind.gen_flag == "Array":
            inner_fields = self.emit_property(indent, variable + "_Inner", owner, prop_name, kind.inner, [], [], "0",
                                              "1")
            fields += [".Inner = &%s" % inner_fields, ".ArrayOps = &TScriptArrayOps<%s>::Ops" % kind.inner.cpp_type]
        if kind.gen_flag == "Set":
            inner_fields = self.emit_property(indent, variable + "_Inner", owner, prop_name, kind.inner, [], [], "0",
                                              "1")
            fields += [".Inner = &%s" % inner_fields, ".SetOps = &TScriptSetOps<%s>::Ops" % kind.inner.cpp_type]
        if kind.gen_flag == "Map":
            key_fields = self.emit_property(indent, variable + "_Key", owner, prop_name + "_Key", kind.inner, [], [],
                                            "0", "1")
            value_fields = self.emit_property(indent, variable + "_Value", owner, prop_name, kind.value, [], [], "0",
                                              "1")
            fields += [".Inner = &%s" % key_fields, ".ValueInner = &%s" % value_fields,
                       ".MapOps = &TScriptMapOps<%s, %s>::Ops" % (kind.inner.cpp_type, kind.value.cpp_type)]
        if kind.object_class:
            fields.append(".ClassFunc = &%s" % self.class_function(kind.object_class))
        if kind.meta_class:
            fields.append(".MetaClassFunc = &%s" % self.class_function(kind.meta_class))
        if kind.struct_type:
            fields.append(".StructFunc = &%s" % self.struct_function(kind.struct_type))
        if rep_notify:
            fields.append(".RepNotifyFunc = %s" % cpp_string(rep_notify))
        fields += self.emit_metadata(indent, variable + "_MetaData", metadata)
        self.emit("%sstatic const FPropertyParams %s = {" % (indent, variable))
        for field in fields:
            self.emit("%s\t%s," % (indent, field))
        self.emit("%s};" % indent)
        return variable

    def class_function(self, class_name):
        self.referenced_classes.add(class_name)
        return "Z_Construct_UClass_%s_NoRegister" % class_name

    def struct_function(self, struct_name):
        self.referenced_structs.add(struct_name)
        return "Z_Construct_UScriptStruct_%s" % struct_name

    def member_property(self, indent, owner_decl, prop):
        kind = resolve_kind(prop.type, self.file_name, prop.line, "UPROPERTY '%s'" % prop.name,
                            is_bitfield=prop.is_bitfield, known_enums=self.enums_by_name)
        if prop.array_dim and kind.gen_flag == "Bool" and kind.bitfield_storage:
            raise HeaderError(self.file_name, prop.line, "UPROPERTY '%s': arrays of bitfields can't be reflected"
                              % prop.name)
        flags, metadata, rep_notify = property_flags(prop, self.file_name)
        metadata = finish_metadata(metadata, prop.comment, self.model.module_relative_path)
        owner = owner_decl.name
        if kind.bitfield_storage:
            offset = "0"
        else:
            offset = "STRUCT_OFFSET(%s, %s)" % (owner, prop.name)
        array_dim = "CPP_ARRAY_DIM(%s, %s)" % (prop.name, owner) if prop.array_dim else "1"
        set_bit = "Z_Construct_%s_Statics::NewProp_%s" % (self.construct_suffix(owner_decl), prop.name)
        return self.emit_property(indent, "NewProp_" + prop.name, owner, prop.name, kind, flags, metadata, offset,
                                  array_dim, rep_notify, set_bit)

    @staticmethod
    def construct_suffix(decl):
        return ("UScriptStruct_" if decl.kind == "struct" else "UClass_") + decl.name

    def emit_property_table(self, indent, owner_decl):
        """Emits every property of a class or struct; returns the initializer fields of the table."""
        names = []
        for prop in owner_decl.properties:
            with _Guard(self.out, prop.conditions):
                self.member_property(indent, owner_decl, prop)
            names.append(("NewProp_" + prop.name, prop.conditions))
        return self.emit_pointer_table(indent, "PropPointers", "FPropertyParams", names, "Properties",
                                       "NumProperties")

    def emit_pointer_table(self, indent, variable, element_type, names, field, count_field):
        if not names:
            return []
        self.emit("%sstatic const %s* const %s[] = {" % (indent, element_type, variable))
        for name, conditions in names:
            with _Guard(self.out, conditions):
                self.emit("%s\t&%s," % (indent, name))
        # A closing null keeps the table valid when a condition removes every entry.
        self.emit("%s\tnullptr," % indent)
        self.emit("%s};" % indent)
        return [".%s = %s" % (field, variable), ".%s = static_cast<int32>(UE_ARRAY_COUNT(%s)) - 1" % (count_field, variable)]

    # Functions

    def emit_function(self, indent, owner_decl, function):
        flags, metadata = function_flags(function, self.file_name)
        variable = "Func_" + function.name
        parms_type = "%s_event%s_Parms" % (owner_decl.name[1:], function.name)
        members = []
        for parameter in function.parameters:
            what = "parameter '%s' of UFUNCTION '%s'" % (parameter.name, function.name)
            kind = resolve_kind(parameter.type, self.file_name, function.line, what, known_enums=self.enums_by_name)
            param_flags = ["CPF_Parm"]
            if parameter.type.is_reference and not parameter.type.is_const:
                param_flags.append("CPF_OutParm")
                if any(s.key.lower() == "ref" for s in parameter.specifiers):
                    param_flags.append("CPF_ReferenceParm")
            elif parameter.type.is_const:
                param_flags.append("CPF_ConstParm")
            if parameter.default:
                metadata.append(("CPP_Default_" + parameter.name, default_value_text(parameter.default, kind)))
                if "FUNC_HasDefaults" not in flags:
                    flags.append("FUNC_HasDefaults")
            members.append((parameter.name, kind, param_flags + ["CPF_NativeAccessSpecifierPublic"]))
        if function.return_type.name != "void" or function.return_type.is_pointer:
            kind = resolve_kind(function.return_type, self.file_name, function.line,
                                "return value of UFUNCTION '%s'" % function.name, known_enums=self.enums_by_name)
            members.append(("ReturnValue", kind, ["CPF_Parm", "CPF_OutParm", "CPF_ReturnParm",
                                                  "CPF_NativeAccessSpecifierPublic"]))
        if any("CPF_OutParm" in member[2] for member in members) and "FUNC_HasOutParms" not in flags:
            flags.append("FUNC_HasOutParms")
        fields = [".Name = %s" % cpp_string(function.name), ".FunctionFlags = %s" % " | ".join(flags)]
        if members:
            self.emit("%sstruct %s" % (indent, parms_type))
            self.emit("%s{" % indent)
            for name, kind, _ in members:
                self.emit("%s\t%s %s;" % (indent, kind.cpp_type, name))
            self.emit("%s};" % indent)
            names = []
            for name, kind, param_flags in members:
                self.emit_property(indent, "%s_%s" % (variable, name), parms_type, name, kind, param_flags, [],
                                   "STRUCT_OFFSET(%s, %s)" % (parms_type, name), "1",
                                   set_bit_function="")
                names.append(("%s_%s" % (variable, name), ()))
            fields += self.emit_pointer_table(indent, variable + "_Params", "FPropertyParams", names, "Properties",
                                              "NumProperties")
            fields.append(".ParmsSize = sizeof(%s)" % parms_type)
        metadata = finish_metadata(metadata, function.comment, self.model.module_relative_path)
        fields += self.emit_metadata(indent, variable + "_MetaData", metadata)
        self.emit("%sstatic const FFunctionParams %s = {" % (indent, variable))
        for field in fields:
            self.emit("%s\t%s," % (indent, field))
        self.emit("%s};" % indent)
        return variable

    # Types

    def open_construct(self, decl, statics, type_name, variable):
        """The statics struct of a class or struct, and its Construct() up to the early return of the made type."""
        self.emit("// %s" % decl.name)
        self.emit("struct %s" % statics)
        self.emit("{")
        for prop in decl.properties:
            if prop.is_bitfield:
                with _Guard(self.out, prop.conditions):
                    self.emit("\tstatic void NewProp_%s_SetBit(void* Object) { static_cast<%s*>(Object)->%s = 1; }"
                              % (prop.name, decl.name, prop.name))
                    self.emit("\tstatic void NewProp_%s_ClearBit(void* Object) { static_cast<%s*>(Object)->%s = 0; }"
                              % (prop.name, decl.name, prop.name))
        self.emit("\tstatic %s* Construct();" % type_name)
        self.emit("};")
        self.emit("")
        self.emit("%s* %s::Construct()" % (type_name, statics))
        self.emit("{")
        self.emit("\tstatic %s* %s = nullptr;" % (type_name, variable))
        self.emit("\tif (%s)" % variable)
        self.emit("\t{")
        self.emit("\t\treturn %s;" % variable)
        self.emit("\t}")

    def write_class(self, decl):
        statics = "Z_Construct_UClass_%s_Statics" % decl.name
        flags, config_name, within, metadata = class_flags(decl, self.file_name)
        self.open_construct(decl, statics, "UClass", "Class")
        indent = "\t"
        fields = [".Name = %s" % cpp_string(decl.name[1:]),
                  ".PackageName = %s" % cpp_string("/Script/" + self.model.module),
                  ".Size = sizeof(%s)" % decl.name,
                  ".Alignment = alignof(%s)" % decl.name,
                  ".ClassFlags = %s::StaticClassFlags" % decl.name,
                  ".CastFlags = %s::StaticClassCastFlags()" % decl.name,
                  ".ConfigName = %s::StaticConfigName()" % decl.name,
                  ".ClassConstructor = &InternalConstructor<%s>" % decl.name,
                  ".SuperClassFunc = &%s::Super::StaticClass" % decl.name,
                  ".WithinClassFunc = &%s::WithinClass::StaticClass" % decl.name]
        if decl.kind == "class":
            fields.append(".AddReferencedObjects = &%s::AddReferencedObjects" % decl.name)
        fields += self.emit_property_table(indent, decl)
        function_names = []
        for function in decl.functions:
            with _Guard(self.out, function.conditions):
                self.emit_function(indent, decl, function)
            function_names.append(("Func_" + function.name, function.conditions))
        fields += self.emit_pointer_table(indent, "FuncPointers", "FFunctionParams", function_names, "Functions",
                                          "NumFunctions")
        if decl.interfaces:
            self.emit("\tstatic const FImplementedInterfaceParams InterfaceParams[] = {")
            for interface in decl.interfaces:
                self.emit("\t\t{ &%s::UClassType::StaticClass, static_cast<int32>(VTABLE_OFFSET(%s, %s)), false },"
                          % (interface, decl.name, interface))
            self.emit("\t};")
            fields += [".Interfaces = InterfaceParams", ".NumInterfaces = %d" % len(decl.interfaces)]
        metadata = [("IncludePath", self.model.include_path)] + metadata
        metadata = finish_metadata(metadata, decl.comment, self.model.module_relative_path)
        fields += self.emit_metadata(indent, "Class_MetaData", metadata)
        self.emit("\tstatic const FClassParams ClassParams = {")
        for field in fields:
            self.emit("\t\t%s," % field)
        self.emit("\t};")
        self.emit("\tConstructUClass(Class, ClassParams);")
        self.emit("\treturn Class;")
        self.emit("}")
        self.emit("")
        self.emit("UClass* %s::GetPrivateStaticClass()" % decl.name)
        self.emit("{")
        self.emit("\treturn %s::Construct();" % statics)
        self.emit("}")
        self.emit("")
        self.emit("UClass* Z_Construct_UClass_%s_NoRegister()" % decl.name)
        self.emit("{")
        self.emit("\treturn %s::StaticClass();" % decl.name)
        self.emit("}")
        self.emit("")
        self.emit("template<> UClass* StaticClass<%s>()" % decl.name)
        self.emit("{")
        self.emit("\treturn %s::StaticClass();" % decl.name)
        self.emit("}")
        self.emit("")
        if decl.body_macro in ("GENERATED_BODY",) and not decl.constructors.has_default \
                and not decl.constructors.has_object_initializer:
            self.emit("%s::%s(const FObjectInitializer& ObjectInitializer)" % (decl.name, decl.name))
            self.emit("\t: Super(ObjectInitializer)")
            self.emit("{")
            self.emit("}")
            self.emit("")
        if not decl.constructors.has_destructor:
            self.emit("%s::~%s()" % (decl.name, decl.name))
            self.emit("{")
            self.emit("}")
            self.emit("")

    def write_struct(self, decl):
        statics = "Z_Construct_UScriptStruct_%s_Statics" % decl.name
        metadata = struct_metadata(decl, self.file_name)
        self.open_construct(decl, statics, "UScriptStruct", "Struct")
        fields = [".Name = %s" % cpp_string(decl.name[1:]),
                  ".PackageName = %s" % cpp_string("/Script/" + self.model.module),
                  ".StructFlags = EStructFlags(%s)" % _flags(struct_flags(decl), "STRUCT_NoFlags"),
                  ".NewStructOps = &NewCppStructOps<%s>" % decl.name]
        if decl.super_name:
            fields.append(".SuperFunc = &%s" % self.struct_function(decl.super_name))
        fields += self.emit_property_table("\t", decl)
        metadata = finish_metadata(metadata, decl.comment, self.model.module_relative_path)
        fields += self.emit_metadata("\t", "Struct_MetaData", metadata)
        self.emit("\tstatic const FStructParams StructParams = {")
        for field in fields:
            self.emit("\t\t%s," % field)
        self.emit("\t};")
        self.emit("\tConstructUScriptStruct(Struct, StructParams);")
        self.emit("\treturn Struct;")
        self.emit("}")
        self.emit("")
        if not is_noexport(decl):
            self.emit("UScriptStruct* %s::StaticStruct()" % decl.name)
            self.emit("{")
            self.emit("\treturn %s::Construct();" % statics)
            self.emit("}")
            self.emit("")
        self.emit("template<> UScriptStruct* StaticStruct<%s>()" % decl.name)
        self.emit("{")
        self.emit("\treturn %s::Construct();" % statics)
        self.emit("}")
        self.emit("")
        self.emit("UScriptStruct* Z_Construct_UScriptStruct_%s()" % decl.name)
        self.emit("{")
        self.emit("\treturn %s::Construct();" % statics)
        self.emit("}")
        self.emit("")

    def write_enum(self, enum):
        function = "Z_Construct_UEnum_%s_%s" % (self.model.module, enum.name)
        cpp_type = enum_cpp_type(enum)
        metadata, bit_flags = enum_metadata(enum, self.file_name)
        self.emit("// %s" % enum.name)
        self.emit("static UEnum* %s()" % function)
        self.emit("{")
        self.emit("\tstatic UEnum* Enum = nullptr;")
        self.emit("\tif (Enum)")
        self.emit("\t{")
        self.emit("\t\treturn Enum;")
        self.emit("\t}")
        self.emit("\tstatic const FEnumeratorParam Enumerators[] = {")
        for enumerator in enum.enumerators:
            full_name = enumerator.name if enum.cpp_form == "Regular" else "%s::%s" % (enum.name, enumerator.name)
            with _Guard(self.out, enumerator.conditions):
                self.emit("\t\t{ %s, static_cast<int64>(%s::%s) }," % (cpp_string(full_name), enum.name,
                                                                       enumerator.name))
            entries = enumerator_metadata(enumerator, self.file_name)
            entries = finish_metadata(entries, enumerator.comment, "")
            entries.append(("Name", full_name))
            for key, value in entries:
                metadata.append(("%s.%s" % (enumerator.name, key), value))
        self.emit("\t\t{ nullptr, 0 },")
        self.emit("\t};")
        metadata = finish_metadata(metadata, enum.comment, self.model.module_relative_path)
        fields = [".Name = %s" % cpp_string(enum.name), ".CppType = %s" % cpp_string(cpp_type),
                  ".PackageName = %s" % cpp_string("/Script/" + self.model.module),
                  ".Enumerators = Enumerators",
                  ".NumEnumerators = static_cast<int32>(UE_ARRAY_COUNT(Enumerators)) - 1",
                  ".CppForm = UEnum::ECppForm::%s" % enum.cpp_form,
                  ".EnumFlags = %s" % ("EEnumFlags::Flags" if bit_flags else "EEnumFlags::None")]
        fields += self.emit_metadata("\t", "Enum_MetaData", metadata)
        self.emit("\tstatic const FEnumParams EnumParams = {")
        for field in fields:
            self.emit("\t\t%s," % field)
        self.emit("\t};")
        self.emit("\tConstructUEnum(Enum, EnumParams);")
        self.emit("\treturn Enum;")
        self.emit("}")
        self.emit("")
        api = module_api(self.model)
        self.emit("template<> %sUEnum* StaticEnum<%s>()" % (api + " " if api else "", cpp_type))
        self.emit("{")
        self.emit("\treturn %s();" % function)
        self.emit("}")
        self.emit("")

    def write(self):
        model = self.model
        self.emit("// Reflection data of %s, written by the header tool from its macros. Do not edit."
                  % os.path.basename(model.file_name))
        self.emit("")
        self.emit("#include \"UObject/GeneratedCppIncludes.h\"")
        self.emit("#include \"%s\"" % model.file_name.replace("\\", "/"))
        self.emit("")
        self.emit("// Offsets of members of classes with virtual functions are well defined on the compilers we use.")
        self.emit("#pragma GCC diagnostic ignored \"-Winvalid-offsetof\"")
        self.emit("#pragma GCC diagnostic ignored \"-Wmissing-field-initializers\"")
        self.emit("")
        self.emit("using namespace UECodeGen_Private;")
        self.emit("")
        for enum in model.enums:
            self.write_enum(enum)
        for decl in model.classes:
            if decl.kind in ("class", "interface"):
                self.write_class(decl)
            elif decl.kind == "struct":
                self.write_struct(decl)
        registrations = ["\tStaticEnum<%s>();" % enum_cpp_type(enum) for enum in model.enums]
        registrations += ["\tStaticStruct<%s>();" % d.name for d in model.classes if d.kind == "struct"]
        registrations += ["\t%s::StaticClass();" % d.name for d in model.classes if d.kind in ("class", "interface")]
        self.emit("// Makes the types findable by name before anything asked for them, as the engine does at start.")
        self.emit("static void Z_RegisterCompiledIn_%s()" % model.file_id)
        self.emit("{")
        for line in registrations:
            self.emit(line)
        self.emit("}")
        self.emit("static FRegisterCompiledInInfo Z_CompiledInDeferFile_%s(&Z_RegisterCompiledIn_%s);"
                  % (model.file_id, model.file_id))
        declarations = ["// The types this file refers to, wherever they are reflected."]
        declarations += ["UClass* Z_Construct_UClass_%s_NoRegister();" % name for name in sorted(self.referenced_classes)]
        declarations += ["UScriptStruct* Z_Construct_UScriptStruct_%s();" % name
                         for name in sorted(self.referenced_structs)]
        insert_at = self.out.index("using namespace UECodeGen_Private;") + 2
        self.out[insert_at:insert_at] = declarations + [""]
        return "\n".join(self.out) + "\n"


def write_generated_cpp(model):
    return CppWriter(model).write()
