"""The header tool on small headers: what it reads from them and what it writes for them."""

import io
import os
import sys
import tempfile
import unittest
from contextlib import redirect_stderr

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "Tools", "HeaderTool"))

import HeaderTool  # noqa: E402
from headertool.errors import HeaderError  # noqa: E402
from headertool.generated_cpp import write_generated_cpp  # noqa: E402
from headertool.generated_header import write_generated_header  # noqa: E402
from headertool.parser import parse_header  # noqa: E402
from headertool.macro_flags import class_flags, finish_metadata, property_flags  # noqa: E402
from headertool.types import resolve_kind  # noqa: E402

PROLOGUE = '#pragma once\n#include "UObject/Object.h"\n#include "Test.generated.h"\n'


def parse(body):
    return parse_header(PROLOGUE + body, "Test.h", "TestModule", "Public/Test.h", "Test.h", "FID_Test")


def reflected_class(body, name=None):
    model = parse(body)
    return next(c for c in model.classes if name is None or c.name == name)


def only_property(members):
    decl = reflected_class("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n%s\n};\n" % members)
    return decl.properties[0]


def metadata_of(prop):
    _, metadata, _ = property_flags(prop, "Test.h")
    return dict(finish_metadata(metadata, prop.comment, ""))


class TooltipTests(unittest.TestCase):
    def test_block_comment_becomes_trimmed_lines(self):
        prop = only_property("\t/**\n\t * First line.\n\t *\n\t * Second paragraph.\n\t */\n\tUPROPERTY()\n\tint32 Value;")
        self.assertEqual(metadata_of(prop)["ToolTip"], "First line.\n\nSecond paragraph.")

    def test_consecutive_line_comments_join(self):
        prop = only_property("\t// One.\n\t// Two.\n\tUPROPERTY()\n\tint32 Value;")
        self.assertEqual(metadata_of(prop)["ToolTip"], "One.\nTwo.")

    def test_comments_that_are_not_about_the_declaration_are_left_out(self):
        # "//~" marks a comment that is not a tooltip; a comment after code describes that code.
        self.assertNotIn("ToolTip", metadata_of(only_property("\t//~ Internal.\n\tUPROPERTY()\n\tint32 Value;")))
        decl = reflected_class("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n"
                               "\tUPROPERTY()\n\tint32 First; // about First\n\tUPROPERTY()\n\tint32 Second;\n};\n")
        self.assertNotIn("ToolTip", metadata_of(decl.properties[1]))
        prop = only_property("\t/** Dropped. */\n#if WITH_EDITOR\n#endif\n\tUPROPERTY()\n\tint32 Value;")
        self.assertNotIn("ToolTip", metadata_of(prop))

    def test_explicit_tooltip_wins_over_the_comment(self):
        prop = only_property('\t/** From the comment. */\n\tUPROPERTY(meta=(ToolTip="Given"))\n\tint32 Value;')
        self.assertEqual(metadata_of(prop)["ToolTip"], "Given")
        self.assertEqual(metadata_of(prop)["Comment"], "/** From the comment. */")


class SpecifierTests(unittest.TestCase):
    def test_values_in_every_form(self):
        prop = only_property('\tUPROPERTY(Category=Outer|Inner, meta=(EditCondition="bOn", ClampMin=0.5, NoResetToDefault, '
                             'DisplayName="Say \\"Hi\\""))\n\tint32 Value;')
        metadata = metadata_of(prop)
        self.assertEqual(metadata["Category"], "Outer|Inner")
        self.assertEqual(metadata["ClampMin"], "0.5")
        self.assertEqual(metadata["NoResetToDefault"], "true")
        self.assertEqual(metadata["DisplayName"], 'Say "Hi"')

    def test_flags_ignore_case_and_combine(self):
        flags, _, rep_notify = property_flags(only_property("\tUPROPERTY(globalconfig, EDITDEFAULTSONLY, ReplicatedUsing=OnRep_Value)\n\tint32 Value;"), "Test.h")
        for flag in ("CPF_GlobalConfig", "CPF_Config", "CPF_Edit", "CPF_DisableEditOnInstance", "CPF_Net", "CPF_RepNotify"):
            self.assertIn(flag, flags)
        self.assertEqual(rep_notify, "OnRep_Value")

    def test_conflicting_edit_specifiers_are_refused(self):
        with self.assertRaisesRegex(HeaderError, "only one of EditAnywhere, VisibleAnywhere"):
            property_flags(only_property("\tUPROPERTY(EditAnywhere, VisibleAnywhere)\n\tint32 Value;"), "Test.h")

    def test_class_specifiers(self):
        decl = reflected_class('UCLASS(Config=Game, DefaultConfig, Blueprintable, HideCategories=(Rendering, "Actor Tick"), meta=(DisplayName="Nice"))\n'
                               "class MODULE_API UThing : public UObject\n{\n\tGENERATED_BODY()\n};\n")
        flags, config_name, _, metadata = class_flags(decl, "Test.h")
        self.assertEqual(config_name, "Game")
        self.assertEqual(flags, ["CLASS_Config", "CLASS_DefaultConfig", "CLASS_RequiredAPI"])
        self.assertIn(("HideCategories", "Rendering Actor Tick"), metadata)
        self.assertIn(("IsBlueprintBase", "true"), metadata)
        self.assertEqual(decl.api_macro, "MODULE_API")
        with self.assertRaisesRegex(HeaderError, "unknown UCLASS specifier 'Confg'"):
            class_flags(reflected_class("UCLASS(Confg=Game)\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n};\n"), "Test.h")


class DeclarationTests(unittest.TestCase):
    def test_member_shapes(self):
        decl = reflected_class("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n"
                               "\tUPROPERTY()\n\tTArray<TEnumAsByte<EColor::Type>> Colors = {EColor::Red};\n"
                               "\tUPROPERTY()\n\tuint8 bFlag : 1;\n"
                               "\tUPROPERTY()\n\tint32 Slots[EColor::Count];\n"
                               "\tUPROPERTY()\n\tmutable FString Cache{TEXT(\"x\")};\n"
                               "};\n")
        colors, flag, slots, cache = decl.properties
        self.assertEqual((colors.name, colors.type.name, colors.type.arguments[0].name), ("Colors", "TArray", "TEnumAsByte"))
        kind = resolve_kind(colors.type, "Test.h", 1, "Colors")
        self.assertEqual((kind.gen_flag, kind.inner.gen_flag, kind.inner.enum_type), ("Array", "Byte", "EColor"))
        self.assertTrue(flag.is_bitfield)
        self.assertEqual(resolve_kind(flag.type, "Test.h", 1, "bFlag", is_bitfield=True).bitfield_storage, "uint8")
        self.assertEqual(slots.array_dim, "EColor::Count")
        self.assertEqual((cache.name, cache.type.name), ("Cache", "FString"))

    def test_access_follows_the_specifiers_and_the_generated_body(self):
        decl = reflected_class("UCLASS()\nclass UThing : public UObject\n{\n\tUPROPERTY()\n\tint32 BeforeBody;\n"
                               "\tGENERATED_BODY()\n\tUPROPERTY()\n\tint32 AfterBody;\n"
                               "public:\n\tUPROPERTY()\n\tint32 Public;\nprotected:\n\tUPROPERTY()\n\tint32 Protected;\n};\n")
        self.assertEqual([p.access for p in decl.properties], ["private", "private", "public", "protected"])
        struct = reflected_class("USTRUCT()\nstruct FThing\n{\n\tGENERATED_BODY()\n\tUPROPERTY()\n\tint32 Value;\n};\n")
        self.assertEqual(struct.properties[0].access, "public")

    def test_editor_only_members_are_generated_under_their_condition(self):
        model = parse("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n#if WITH_EDITORONLY_DATA\n"
                      "\tUPROPERTY()\n\tint32 EditorValue;\n#endif\n\tUPROPERTY()\n\tint32 Value;\n};\n")
        editor_value, value = model.classes[0].properties
        self.assertEqual(editor_value.conditions, ("WITH_EDITORONLY_DATA",))
        self.assertEqual(value.conditions, ())
        self.assertIn("CPF_EditorOnly", property_flags(editor_value, "Test.h")[0])
        cpp = write_generated_cpp(model)
        self.assertIn("#if WITH_EDITORONLY_DATA\n\tstatic const FMetaDataPairParam NewProp_EditorValue_MetaData", cpp)
        self.assertIn("#if WITH_EDITORONLY_DATA\n\t\t&NewProp_EditorValue,\n#endif\n\t\t&NewProp_Value,", cpp)

    def test_windows_line_ends_keep_the_line_numbers(self):
        text = "UCLASS()\r\nclass UThing : public UObject\r\n{\r\n\t// Tip.\r\n\tGENERATED_BODY()\r\n\tUPROPERTY()\r\n\tint32 Value;\r\n};\r\n"
        decl = parse(text.replace("\t// Tip.\r\n", "")).classes[0]
        self.assertEqual(decl.body_line, 7)
        model = parse(text.replace("\tGENERATED_BODY()\r\n", "\tGENERATED_BODY()\r\n\t/** Tip\r\n\t * two. */\r\n"))
        self.assertEqual(metadata_of(model.classes[0].properties[0])["ToolTip"], "Tip\ntwo.")

    def test_reflection_macros_inside_comments_and_strings_mean_nothing(self):
        decl = reflected_class('/* UCLASS() class UFake {}; */\nUCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n'
                               '\t// UPROPERTY()\n\tint32 NotReflected;\n\tFString Text = TEXT("UPROPERTY()");\n};\n')
        self.assertEqual(decl.properties, [])


class GeneratedCodeTests(unittest.TestCase):
    def test_each_body_macro_is_named_after_its_own_line(self):
        text = ("UCLASS()\nclass UFirst : public UObject\n{\n\tGENERATED_BODY()\n};\n"
                "UCLASS()\nclass USecond : public UFirst\n{\n\tGENERATED_UCLASS_BODY()\n};\n")
        model = parse(text)
        lines = (PROLOGUE + text).split("\n")
        header = write_generated_header(model, "Test.h")
        for decl in model.classes:
            self.assertIn(decl.body_macro + "()", lines[decl.body_line - 1])
            self.assertIn("#define FID_Test_%d_%s \\" % (decl.body_line, decl.body_macro), header)
        self.assertIn("#define CURRENT_FILE_ID FID_Test", header)
        # The legacy body declares the initializer constructor and leaves access public.
        legacy = header[header.index("GENERATED_UCLASS_BODY"):]
        self.assertIn("NO_API USecond(const FObjectInitializer& ObjectInitializer);", legacy)
        self.assertTrue(legacy.split("template<>")[0].rstrip().endswith("public:"))

    def test_constructors_the_class_declares_are_used(self):
        cases = {
            "\tUThing();": "DEFINE_DEFAULT_CONSTRUCTOR_CALL(UThing)",
            "\texplicit UThing(const FObjectInitializer& Initializer);": "DEFINE_DEFAULT_OBJECT_INITIALIZER_CONSTRUCTOR_CALL(UThing)",
            "\tvoid Make() { UThing(); }": "UThing(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());",
        }
        for member, expected in cases.items():
            text = "UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\npublic:\n%s\n};\n" % member
            model = parse(text)
            self.assertIn(expected, write_generated_header(model, "Test.h"), member)
            defines_constructor = "UThing::UThing(const FObjectInitializer& ObjectInitializer)" in write_generated_cpp(model)
            self.assertEqual(defines_constructor, "Get()" in expected, member)
        model = parse("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n\tvirtual ~UThing();\n};\n")
        self.assertNotIn("~UThing", write_generated_header(model, "Test.h"))
        self.assertNotIn("UThing::~UThing", write_generated_cpp(model))

    def test_text_is_escaped_in_the_tables(self):
        prop = only_property('\t/** Use "quotes", a \\\\ and\n\t * two lines. */\n\tUPROPERTY()\n\tint32 Value;')
        model = parse("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n"
                      '\t/** Use "quotes", a \\\\ and\n\t * two lines. */\n\tUPROPERTY()\n\tint32 Value;\n};\n')
        self.assertEqual(metadata_of(prop)["ToolTip"], 'Use "quotes", a \\\\ and\ntwo lines.')
        self.assertIn('TEXT("Use \\"quotes\\", a \\\\\\\\ and\\ntwo lines.")', write_generated_cpp(model))


class FunctionTests(unittest.TestCase):
    def test_parameters_defaults_and_qualifiers(self):
        decl = reflected_class("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n"
                               "\tUFUNCTION(BlueprintCallable)\n\tstatic FString Join(const TArray<FString>& Parts, "
                               'const FString& Separator = FString(TEXT(",")), UPARAM(ref) int32& Count);\n'
                               "\tUFUNCTION()\n\tint32 Get() const { return Value; }\n"
                               "\tUPROPERTY()\n\tint32 Value;\n};\n")
        join, get = decl.functions
        self.assertTrue(join.is_static)
        self.assertEqual([p.name for p in join.parameters], ["Parts", "Separator", "Count"])
        self.assertEqual(join.parameters[1].default, 'FString(TEXT(","))')
        self.assertEqual(join.parameters[2].specifiers[0].key, "ref")
        self.assertTrue(get.is_const)
        # The inline body was skipped, and the member after it still read.
        self.assertEqual([p.name for p in decl.properties], ["Value"])
        cpp = write_generated_cpp(parse("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\npublic:\n"
                                        "\tUFUNCTION(BlueprintCallable)\n\tstatic FString Join(const TArray<FString>& Parts, "
                                        "UPARAM(ref) int32& Count);\n};\n"))
        self.assertIn("CPF_Parm | CPF_OutParm | CPF_ReferenceParm", cpp)
        self.assertIn("FUNC_Native | FUNC_BlueprintCallable | FUNC_Public | FUNC_Static | FUNC_Final | FUNC_HasOutParms", cpp)


class PropertyKindTests(unittest.TestCase):
    def kind(self, type_text):
        return resolve_kind(only_property("\tUPROPERTY()\n\t%s Member;" % type_text).type, "Test.h", 1, "Member")

    def test_references_structs_and_containers(self):
        self.assertEqual((self.kind("AActor*").gen_flag, self.kind("AActor*").object_class), ("Object", "AActor"))
        self.assertEqual(self.kind("UClass*").gen_flag, "Class")
        sub = self.kind("TSubclassOf<UActorComponent>")
        self.assertEqual((sub.gen_flag, sub.meta_class), ("Class", "UActorComponent"))
        self.assertEqual(self.kind("TScriptInterface<IGreeter>").object_class, "UGreeter")
        self.assertEqual(self.kind("TSoftClassPtr<UObject>").gen_flag, "SoftClass")
        self.assertEqual(self.kind("FVector").struct_type, "FVector")
        self.assertEqual(self.kind("FText").gen_flag, "Text")
        pairs = self.kind("TMap<FName, TObjectPtr<UObject>>")
        self.assertEqual((pairs.gen_flag, pairs.inner.gen_flag, pairs.value.gen_flag), ("Map", "Name", "Object"))
        self.assertEqual(pairs.cpp_type, "TMap<FName, TObjectPtr<UObject>>")
        for bad in ("FVector*", "TArray<TArray<int32>>", "TSet<FText>", "TWeakObjectPtr<FThing>"):
            with self.assertRaises(HeaderError, msg=bad):
                self.kind(bad)

    def test_generated_code_reaches_the_types_it_names(self):
        cpp = write_generated_cpp(parse("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\npublic:\n"
                                        "\tUPROPERTY()\n\tTArray<TObjectPtr<UStaticMesh>> Meshes;\n"
                                        "\tUPROPERTY()\n\tFTransform Where;\n"
                                        "\tUFUNCTION()\n\tvoid Print(const FString& Text = TEXT(\"Hi\"), float Scale = 2.f, "
                                        "FLinearColor Color = FLinearColor(1, 0, 0));\n};\n"))
        self.assertIn("UClass* Z_Construct_UClass_UStaticMesh_NoRegister();", cpp)
        self.assertIn("UScriptStruct* Z_Construct_UScriptStruct_FTransform();", cpp)
        self.assertIn(".ArrayOps = &TScriptArrayOps<TObjectPtr<UStaticMesh>>::Ops", cpp)
        self.assertIn('{ TEXT("CPP_Default_Text"), TEXT("Hi") }', cpp)
        self.assertIn('{ TEXT("CPP_Default_Scale"), TEXT("2.000000") }', cpp)
        self.assertIn('{ TEXT("CPP_Default_Color"), TEXT("(R=1.000000,G=0.000000,B=0.000000,A=1.000000)") }', cpp)
        self.assertIn("UClass* Z_Construct_UClass_UThing_NoRegister()", cpp)

    def test_noexport_structs_in_non_cpp_blocks(self):
        model = parse("#if CPP\nstruct FHidden { int32 NotSeen; };\n#else\nUSTRUCT(immutable, noexport)\n"
                      "struct FPoint\n{\n\tUPROPERTY()\n\tdouble X;\n};\n#endif\n"
                      "#if !CPP\nUSTRUCT(noexport)\nstruct FSpot\n{\n\tUPROPERTY()\n\tfloat Y;\n};\n#endif\n")
        self.assertEqual([c.name for c in model.classes], ["FPoint", "FSpot"])
        cpp = write_generated_cpp(model)
        self.assertIn("STRUCT_NoExport | STRUCT_Immutable | STRUCT_Atomic", cpp)
        self.assertNotIn("FPoint::StaticStruct()", cpp)
        self.assertIn("template<> UScriptStruct* StaticStruct<FPoint>()", cpp)
        self.assertNotIn("GENERATED", write_generated_header(model, "Test.h").split("CURRENT_FILE_ID")[-1])


class EnumTests(unittest.TestCase):
    def test_forms_values_and_metadata(self):
        model = parse("UENUM()\nenum class EMode : int8\n{\n\tA = -1 UMETA(DisplayName=\"Minus\"),\n\tB = (1 << 2),\n"
                      "#if WITH_EDITOR\n\tEditorOnly,\n#endif\n\tC UMETA(Hidden)\n};\n"
                      "UENUM()\nnamespace ELevel\n{\n\tenum Type\n\t{\n\t\tLow\n\t};\n}\n")
        mode, level = model.enums
        self.assertEqual((mode.cpp_form, mode.underlying), ("EnumClass", "int8"))
        self.assertEqual([e.value_text for e in mode.enumerators], ["-1", "(1<<2)", "", ""])
        self.assertEqual(mode.enumerators[0].metadata[0].value, "Minus")
        self.assertEqual(mode.enumerators[2].conditions, ("WITH_EDITOR",))
        self.assertEqual(level.cpp_form, "Namespaced")
        header = write_generated_header(model, "Test.h")
        self.assertIn("enum class EMode : int8;", header)
        self.assertNotIn("StaticEnum<ELevel::Type>", header)
        cpp = write_generated_cpp(model)
        self.assertIn('{ TEXT("EMode::A"), static_cast<int64>(EMode::A) }', cpp)
        self.assertIn('{ TEXT("A.DisplayName"), TEXT("Minus") }', cpp)
        self.assertIn('{ TEXT("C.Hidden"), TEXT("") }', cpp)
        self.assertIn("template<> UEnum* StaticEnum<ELevel::Type>()", cpp)

    def test_interfaces_pair_up(self):
        model = parse("UINTERFACE()\nclass UGreeter : public UInterface\n{\n\tGENERATED_BODY()\n};\n"
                      "class IGreeter\n{\n\tGENERATED_BODY()\npublic:\n\tvirtual void Greet() = 0;\n};\n"
                      "UCLASS()\nclass UPerson : public UObject, public IGreeter\n{\n\tGENERATED_BODY()\n};\n")
        self.assertEqual([(c.kind, c.name) for c in model.classes],
                         [("interface", "UGreeter"), ("native_interface", "IGreeter"), ("class", "UPerson")])
        self.assertEqual(model.classes[2].interfaces, ["IGreeter"])
        self.assertIn("VTABLE_OFFSET(UPerson, IGreeter)", write_generated_cpp(model))
        with self.assertRaisesRegex(HeaderError, "must be followed by 'IGreeter', found 'IOther'"):
            parse("UINTERFACE()\nclass UGreeter : public UInterface\n{\n\tGENERATED_BODY()\n};\nclass IOther\n{\n\tGENERATED_BODY()\n};\n")


class ErrorTests(unittest.TestCase):
    def test_misuse_is_reported_at_its_line(self):
        cases = [
            ("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n\tUPROPERTY()\n\tstatic int32 Count;\n};\n", 8, "cannot be static"),
            ("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n\tUENUM()\n\tenum class EInner { A };\n};\n", 8, "nested reflected types"),
            ("UPROPERTY()\nint32 Global;\n", 4, "outside of a UCLASS"),
            ("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n\tGENERATED_BODY()\n};\n", 8, "more than one GENERATED_BODY"),
            ("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n\tUPROPERTY()\n\tuint8 bWide : 2;\n};\n", 8, "width of 1"),
            ("UCLASS()\nclass UThing\n{\n\tGENERATED_BODY()\n};\n", 5, "must derive from a reflected class"),
            ("UCLASS()\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n\tUFUNCTION()\n\tvoid Take(int32);\n};\n", 8, "needs a name"),
            ("UENUM()\nenum class EEmpty : uint8 {};\n", 5, "has no enumerators"),
            ('UCLASS(meta=(Note="open))\nclass UThing : public UObject\n{\n\tGENERATED_BODY()\n};\n', 4, "unterminated string literal"),
        ]
        for body, line, message in cases:
            with self.assertRaises(HeaderError, msg=body) as caught:
                model = parse(body)
                write_generated_cpp(model)
            self.assertEqual((caught.exception.line, message in caught.exception.message), (line, True),
                             "%s: %s" % (body, caught.exception))


class CommandLineTests(unittest.TestCase):
    def test_writes_both_files_and_reports_each_bad_header(self):
        with tempfile.TemporaryDirectory() as folder:
            public = os.path.join(folder, "Module", "Public")
            os.makedirs(public)
            good = os.path.join(public, "Good.h")
            bad = os.path.join(public, "Bad.h")
            with open(good, "w") as output:
                output.write('#pragma once\n#include "Good.generated.h"\nUENUM()\nenum class EGood : uint8 { One };\n')
            with open(bad, "w") as output:
                output.write('#pragma once\n#include "Bad.generated.h"\nUCLASS()\nclass UBad : public UObject\n{\n};\n')
            out_dir = os.path.join(folder, "Out")
            errors = io.StringIO()
            with redirect_stderr(errors):
                result = HeaderTool.main(["--module", "Module", "--output-dir", out_dir, bad, good])
            self.assertEqual(result, 1)
            self.assertIn("Bad.h:6: error: 'UBad' has no GENERATED_BODY()", errors.getvalue())
            self.assertEqual(sorted(os.listdir(out_dir)), ["Good.gen.cpp", "Good.generated.h"])
            with open(os.path.join(out_dir, "Good.gen.cpp")) as generated:
                self.assertIn('TEXT("ModuleRelativePath"), TEXT("Public/Good.h")', generated.read())


if __name__ == "__main__":
    unittest.main()
