"""Finds the reflected types of a tokenized header: UCLASS, USTRUCT, UINTERFACE and UENUM with
their UPROPERTY and UFUNCTION members, the way the engine's header tool reads them."""

import os

from .errors import HeaderError
from .model import (ClassDecl, ConstructorInfo, EnumDecl, Enumerator, FunctionDecl, HeaderModel,
                    ParameterDecl, PropertyDecl, Specifier, TypeRef)
from .tokenizer import tokenize

TYPE_MACROS = ("UCLASS", "USTRUCT", "UENUM", "UINTERFACE")
MEMBER_MACROS = ("UPROPERTY", "UFUNCTION")
BODY_MACROS = ("GENERATED_BODY", "GENERATED_UCLASS_BODY", "GENERATED_USTRUCT_BODY",
               "GENERATED_UINTERFACE_BODY", "GENERATED_IINTERFACE_BODY")
LEGACY_BODY_MACROS = ("GENERATED_UCLASS_BODY", "GENERATED_UINTERFACE_BODY", "GENERATED_IINTERFACE_BODY")
DECLARATION_KEYWORDS = ("virtual", "static", "inline", "FORCEINLINE", "FORCENOINLINE", "explicit",
                        "constexpr", "UE_NODISCARD", "mutable", "friend")
TYPE_QUALIFIERS = ("const", "volatile", "class", "struct", "enum", "typename")


def unquote(text):
    """The value of a C++ string literal as the macro argument holds it."""
    body = text[text.index('"') + 1:text.rindex('"')]
    out = []
    index = 0
    escapes = {"n": "\n", "t": "\t", "r": "\r", "\\": "\\", '"': '"', "'": "'", "0": "\0"}
    while index < len(body):
        ch = body[index]
        if ch == "\\" and index + 1 < len(body):
            out.append(escapes.get(body[index + 1], body[index + 1]))
            index += 2
            continue
        out.append(ch)
        index += 1
    return "".join(out)


def join_tokens(tokens):
    """Source text of tokens, spaced only where C++ needs it."""
    out = ""
    previous = None
    for token in tokens:
        if previous is not None and previous.kind in ("id", "num") and token.kind in ("id", "num"):
            out += " "
        elif previous is not None and previous.is_punct(",") and token.kind != "punct":
            out += " "
        out += token.text
        previous = token
    return out


class _Cursor:
    def __init__(self, tokens, file_name):
        self.tokens = tokens
        self.index = 0
        self.file_name = file_name

    def at_end(self):
        return self.index >= len(self.tokens)

    def peek(self, offset=0):
        index = self.index + offset
        return self.tokens[index] if 0 <= index < len(self.tokens) else None

    def last_line(self):
        if self.tokens:
            return self.tokens[min(self.index, len(self.tokens) - 1)].line
        return 1

    def error(self, message, token=None):
        line = token.line if token is not None else self.last_line()
        raise HeaderError(self.file_name, line, message)

    def next(self):
        if self.at_end():
            self.error("unexpected end of file")
        token = self.tokens[self.index]
        self.index += 1
        return token

    def expect_punct(self, text, context):
        token = self.next()
        if not token.is_punct(text):
            self.error("expected '%s' %s, found '%s'" % (text, context, token.text), token)
        return token

    def expect_id(self, context):
        token = self.next()
        if token.kind != "id":
            self.error("expected a name %s, found '%s'" % (context, token.text), token)
        return token

    def accept_punct(self, text):
        token = self.peek()
        if token is not None and token.is_punct(text):
            self.index += 1
            return True
        return False

    def accept_id(self, text):
        token = self.peek()
        if token is not None and token.is_id(text):
            self.index += 1
            return True
        return False

    def skip_balanced(self):
        """Skips from an opening bracket to its match, inclusive."""
        opener = self.next()
        pairs = {"(": ")", "{": "}", "[": "]"}
        closer = pairs[opener.text]
        depth = 1
        while depth:
            token = self.next()
            if token.is_punct(opener.text):
                depth += 1
            elif token.is_punct(closer):
                depth -= 1

    def collect_balanced(self):
        """The tokens between an opening bracket and its match, exclusive."""
        opener = self.next()
        closer = {"(": ")", "{": "}", "[": "]"}[opener.text]
        depth = 1
        collected = []
        while True:
            token = self.next()
            if token.is_punct(opener.text):
                depth += 1
            elif token.is_punct(closer):
                depth -= 1
                if depth == 0:
                    return collected
            collected.append(token)


def split_top_level(tokens, separator=","):
    """Splits at separators outside of (), {}, [] and <>."""
    parts = [[]]
    depth = 0
    for token in tokens:
        if token.kind == "punct" and token.text in ("(", "{", "[", "<"):
            depth += 1
        elif token.kind == "punct" and token.text in (")", "}", "]", ">"):
            depth -= 1
        if depth == 0 and token.is_punct(separator):
            parts.append([])
            continue
        parts[-1].append(token)
    if parts == [[]]:
        return []
    return parts


def parse_specifier_list(tokens, file_name):
    """Reads "A, B=Value, meta=(C, D="x")" into Specifier entries."""
    result = []
    for part in split_top_level(tokens):
        if not part:
            continue
        key_token = part[0]
        if key_token.kind == "str" and len(part) == 1:
            # A quoted entry of a list, such as HideCategories=(Rendering, "Actor Tick").
            result.append(Specifier(unquote(key_token.text), None, key_token.line))
            continue
        if key_token.kind != "id":
            raise HeaderError(file_name, key_token.line, "expected a specifier name, found '%s'" % key_token.text)
        if len(part) == 1:
            result.append(Specifier(key_token.text, None, key_token.line))
            continue
        if not part[1].is_punct("="):
            raise HeaderError(file_name, part[1].line, "expected '=' or ',' after specifier '%s', found '%s'"
                              % (key_token.text, part[1].text))
        value_tokens = part[2:]
        if not value_tokens:
            raise HeaderError(file_name, key_token.line, "specifier '%s' has no value" % key_token.text)
        if value_tokens[0].is_punct("(") and value_tokens[-1].is_punct(")"):
            result.append(Specifier(key_token.text, parse_specifier_list(value_tokens[1:-1], file_name), key_token.line))
        elif len(value_tokens) == 1 and value_tokens[0].kind == "str":
            result.append(Specifier(key_token.text, unquote(value_tokens[0].text), key_token.line))
        else:
            result.append(Specifier(key_token.text, join_tokens(value_tokens), key_token.line))
    return result


def parse_type(tokens, file_name, line):
    """Reads a type as written into a TypeRef."""
    ref = TypeRef(name="", text=join_tokens(tokens))
    index = 0
    name_parts = []
    while index < len(tokens):
        token = tokens[index]
        if token.kind == "id" and token.text in TYPE_QUALIFIERS:
            if token.text == "const":
                ref.is_const = True
            index += 1
            continue
        if token.kind == "id":
            name_parts.append(token.text)
            index += 1
            if index < len(tokens) and tokens[index].is_punct("<"):
                depth = 0
                start = index + 1
                end = start
                for end in range(index, len(tokens)):
                    if tokens[end].is_punct("<"):
                        depth += 1
                    elif tokens[end].is_punct(">"):
                        depth -= 1
                        if depth == 0:
                            break
                if depth != 0:
                    raise HeaderError(file_name, line, "unbalanced '<' in type '%s'" % ref.text)
                for argument in split_top_level_angles(tokens[start:end]):
                    ref.arguments.append(parse_type(argument, file_name, line))
                index = end + 1
            continue
        if token.is_punct("::"):
            name_parts.append("::")
            index += 1
            continue
        if token.is_punct("*"):
            ref.is_pointer = True
            index += 1
            continue
        if token.is_punct("&") or token.is_punct("&&"):
            ref.is_reference = True
            index += 1
            continue
        raise HeaderError(file_name, line, "cannot read type '%s'" % ref.text)
    ref.name = "".join(name_parts)
    if not ref.name:
        raise HeaderError(file_name, line, "missing type in '%s'" % ref.text)
    return ref


def split_top_level_angles(tokens):
    parts = [[]]
    depth = 0
    for token in tokens:
        if token.kind == "punct" and token.text in ("<", "(", "["):
            depth += 1
        elif token.kind == "punct" and token.text in (">", ")", "]"):
            depth -= 1
        if depth == 0 and token.is_punct(","):
            parts.append([])
            continue
        parts[-1].append(token)
    return [part for part in parts if part]


class HeaderParser:
    def __init__(self, text, file_name, module, module_relative_path, include_path, file_id):
        self.file_name = file_name
        tokenized = tokenize(text, file_name)
        self.includes = tokenized.includes
        self.cursor = _Cursor(tokenized.tokens, file_name)
        self.model = HeaderModel(file_name=file_name, file_id=file_id, module=module,
                                 module_relative_path=module_relative_path, include_path=include_path)

    def error(self, message, token=None):
        self.cursor.error(message, token)

    def parse(self):
        cursor = self.cursor
        while not cursor.at_end():
            token = cursor.peek()
            if token.kind != "id":
                cursor.index += 1
                continue
            if token.text == "UCLASS":
                self.parse_class_declaration("class")
            elif token.text == "UINTERFACE":
                self.parse_interface_declaration()
            elif token.text == "USTRUCT":
                self.parse_class_declaration("struct")
            elif token.text == "UENUM":
                self.parse_enum_declaration()
            elif token.text in MEMBER_MACROS:
                self.error("%s outside of a UCLASS or USTRUCT" % token.text, token)
            elif token.text in BODY_MACROS:
                self.error("%s in a type that has no UCLASS, USTRUCT or UINTERFACE in front of it" % token.text, token)
            else:
                cursor.index += 1
        self.check_generated_include()
        return self.model

    def check_generated_include(self):
        if not self.model.classes and not self.model.enums:
            return
        expected = os.path.splitext(os.path.basename(self.file_name))[0] + ".generated.h"
        found = [include for include in self.includes if os.path.basename(include.path) == expected]
        if not found:
            raise HeaderError(self.file_name, 1, "a header with reflected types must include \"%s\"" % expected)
        generated = found[0]
        for include in self.includes:
            if include.line > generated.line:
                raise HeaderError(self.file_name, include.line,
                                  "#include found after \"%s\": the generated header must be the last include"
                                  % expected)
        first_type_line = min([c.line for c in self.model.classes] + [e.line for e in self.model.enums])
        if generated.line > first_type_line:
            raise HeaderError(self.file_name, generated.line,
                              "\"%s\" must be included before the first reflected type" % expected)

    # Types

    def read_macro_specifiers(self):
        macro = self.cursor.next()
        if not self.cursor.peek() or not self.cursor.peek().is_punct("("):
            self.error("expected '(' after %s" % macro.text, macro)
        tokens = self.cursor.collect_balanced()
        return macro, parse_specifier_list(tokens, self.file_name)

    def parse_class_declaration(self, kind):
        macro, specifiers = self.read_macro_specifiers()
        keyword = self.cursor.next()
        if not keyword.is_id("class") and not keyword.is_id("struct"):
            self.error("expected 'class' or 'struct' after %s, found '%s'" % (macro.text, keyword.text), keyword)
        decl = self.read_class_head(kind, macro, specifiers, keyword)
        self.parse_class_body(decl, default_access="public" if keyword.text == "struct" else "private")
        self.model.classes.append(decl)
        return decl

    def parse_interface_declaration(self):
        u_side = self.parse_class_declaration("interface")
        if not u_side.name.startswith("U"):
            self.error("interface class '%s' must begin with 'U'" % u_side.name)
        expected = "I" + u_side.name[1:]
        cursor = self.cursor
        # The native side follows: "class [API] IName [: bases] { GENERATED_BODY() ... };"
        while not cursor.at_end() and not cursor.peek().is_id("class"):
            if cursor.peek().kind == "id" and cursor.peek().text in TYPE_MACROS:
                break
            cursor.index += 1
        if cursor.at_end() or not cursor.peek().is_id("class"):
            self.error("UINTERFACE '%s' must be followed by the native interface class '%s'" % (u_side.name, expected))
        keyword = cursor.next()
        native = self.read_class_head("native_interface", keyword, [], keyword)
        if native.name != expected:
            self.error("UINTERFACE '%s' must be followed by '%s', found '%s'" % (u_side.name, expected, native.name), keyword)
        self.parse_class_body(native, default_access="private")
        native.super_name = u_side.name
        # As in the engine, the functions declared on the native side are reflected on the interface class.
        u_side.functions.extend(native.functions)
        native.functions = []
        self.model.classes.append(native)

    def read_class_head(self, kind, macro, specifiers, keyword):
        cursor = self.cursor
        decl = ClassDecl(kind=kind, name="", line=keyword.line, specifiers=specifiers, comment=macro.comment)
        name_token = cursor.expect_id("after '%s'" % keyword.text)
        if name_token.text.endswith("_API") or name_token.text == "NO_API":
            decl.api_macro = name_token.text
            name_token = cursor.expect_id("after '%s'" % decl.api_macro)
        decl.name = name_token.text
        decl.line = name_token.line
        cursor.accept_id("final")
        if cursor.accept_punct(":"):
            bases = []
            while True:
                cursor.accept_id("public") or cursor.accept_id("protected") or cursor.accept_id("private")
                cursor.accept_id("virtual")
                parts = []
                while not cursor.peek().is_punct(",") and not cursor.peek().is_punct("{"):
                    parts.append(cursor.next())
                if not parts:
                    self.error("expected a base class of '%s'" % decl.name)
                bases.append(join_tokens(parts))
                if not cursor.accept_punct(","):
                    break
            if kind != "native_interface":
                decl.super_name = bases[0]
                decl.interfaces = [base for base in bases[1:] if len(base) > 1 and base[0] == "I" and base[1].isupper()]
        elif kind in ("class", "interface"):
            self.error("class '%s' must derive from a reflected class, such as UObject" % decl.name, name_token)
        if not cursor.peek() or not cursor.peek().is_punct("{"):
            found = cursor.peek().text if cursor.peek() else "end of file"
            self.error("expected '{' to open '%s', found '%s'" % (decl.name, found))
        self.check_prefix(decl, name_token)
        return decl

    def check_prefix(self, decl, token):
        name = decl.name
        valid = len(name) > 1 and name[1].isupper()
        if decl.kind == "class":
            valid = valid and name[0] in ("U", "A")
            expected = "'U' or 'A'"
        elif decl.kind == "struct":
            valid = valid and name[0] == "F"
            expected = "'F'"
        elif decl.kind == "interface":
            valid = valid and name[0] == "U"
            expected = "'U'"
        else:
            valid = valid and name[0] == "I"
            expected = "'I'"
        if not valid:
            self.error("'%s' has no valid prefix: expected %s followed by an upper-case letter" % (name, expected), token)

    def parse_class_body(self, decl, default_access):
        cursor = self.cursor
        cursor.expect_punct("{", "to open '%s'" % decl.name)
        access = default_access
        statement_start = True
        while True:
            token = cursor.peek()
            if token is None:
                self.error("'%s' is not closed" % decl.name)
            if token.is_punct("}"):
                cursor.index += 1
                break
            if token.is_punct("{"):
                cursor.skip_balanced()
                statement_start = True
                continue
            if token.is_punct("(") or token.is_punct("["):
                cursor.skip_balanced()
                statement_start = False
                continue
            if token.is_punct(";"):
                cursor.index += 1
                statement_start = True
                continue
            if token.kind == "id" and token.text in ("public", "protected", "private") and cursor.peek(1) is not None \
                    and cursor.peek(1).is_punct(":"):
                access = token.text
                cursor.index += 2
                statement_start = True
                continue
            if token.kind == "id" and token.text in BODY_MACROS:
                self.read_body_macro(decl, token)
                if decl.kind != "struct":
                    access = "public" if token.text in LEGACY_BODY_MACROS else "private"
                statement_start = True
                continue
            if token.is_id("UPROPERTY"):
                decl.properties.append(self.parse_property(decl, access))
                statement_start = True
                continue
            if token.is_id("UFUNCTION"):
                decl.functions.append(self.parse_function(decl, access))
                statement_start = True
                continue
            if token.kind == "id" and token.text in TYPE_MACROS:
                self.error("%s inside '%s': nested reflected types are not supported" % (token.text, decl.name), token)
            if statement_start:
                self.note_special_member(decl)
            statement_start = False
            cursor.index += 1
        cursor.accept_punct(";")
        noexport = decl.kind == "struct" and any(s.key.lower() == "noexport" for s in decl.specifiers)
        if not decl.body_macro and not noexport:
            self.error("'%s' has no GENERATED_BODY()" % decl.name)

    def read_body_macro(self, decl, token):
        cursor = self.cursor
        if decl.body_macro:
            self.error("'%s' has more than one %s" % (decl.name, token.text), token)
        cursor.index += 1
        if not cursor.peek() or not cursor.peek().is_punct("("):
            self.error("expected '(' after %s" % token.text, token)
        cursor.skip_balanced()
        decl.body_macro = token.text
        decl.body_line = token.line

    def note_special_member(self, decl):
        """Records constructors and a destructor that the class declares, as the generated body depends on them."""
        cursor = self.cursor
        offset = 0
        while cursor.peek(offset) is not None and cursor.peek(offset).kind == "id" \
                and cursor.peek(offset).text in ("explicit", "virtual", "inline", "FORCEINLINE", "constexpr"):
            offset += 1
        if decl.api_macro and cursor.peek(offset) is not None and cursor.peek(offset).is_id(decl.api_macro):
            offset += 1
        if cursor.peek(offset) is not None and cursor.peek(offset).kind == "id" and cursor.peek(offset).text.endswith("_API"):
            offset += 1
        first = cursor.peek(offset)
        if first is None:
            return
        if first.is_punct("~") and cursor.peek(offset + 1) is not None and cursor.peek(offset + 1).is_id(decl.name):
            decl.constructors.has_destructor = True
            return
        if not first.is_id(decl.name) or cursor.peek(offset + 1) is None or not cursor.peek(offset + 1).is_punct("("):
            return
        saved = cursor.index
        cursor.index += offset + 1
        parameters = cursor.collect_balanced()
        cursor.index = saved
        texts = [t.text for t in parameters]
        if not parameters or texts == ["void"]:
            decl.constructors.has_default = True
        elif "FObjectInitializer" in texts and len(split_top_level(parameters)) == 1:
            decl.constructors.has_object_initializer = True

    # Members

    def collect_declaration(self, is_function):
        """Tokens up to the ';' that ends a member declaration; a function's inline body is skipped."""
        cursor = self.cursor
        tokens = []
        while True:
            token = cursor.peek()
            if token is None:
                self.error("declaration is not closed with ';'")
            if token.is_punct(";"):
                cursor.index += 1
                return tokens, False
            if token.is_punct("{") and is_function and any(t.is_punct("(") for t in tokens):
                cursor.skip_balanced()
                cursor.accept_punct(";")
                return tokens, True
            if token.kind == "punct" and token.text in ("(", "{", "["):
                start = cursor.index
                cursor.skip_balanced()
                tokens.extend(cursor.tokens[start:cursor.index])
                continue
            tokens.append(token)
            cursor.index += 1

    def parse_property(self, owner, access):
        macro, specifiers = self.read_macro_specifiers()
        tokens, has_body = self.collect_declaration(is_function=False)
        if has_body or not tokens:
            self.error("UPROPERTY must be followed by a member variable", macro)
        while tokens and tokens[0].kind == "id" and tokens[0].text in ("mutable",):
            tokens = tokens[1:]
        if tokens and tokens[0].is_id("static"):
            self.error("UPROPERTY cannot be static", macro)
        declarator_end = len(tokens)
        angle = 0
        is_bitfield = False
        for index, token in enumerate(tokens):
            if token.is_punct("<"):
                angle += 1
            elif token.is_punct(">"):
                angle -= 1
            elif angle == 0 and (token.is_punct("=") or token.is_punct("{") or token.is_punct(":")):
                declarator_end = index
                is_bitfield = token.is_punct(":")
                break
        declarator = tokens[:declarator_end]
        array_dim = ""
        if declarator and declarator[-1].is_punct("]"):
            open_index = max(i for i, t in enumerate(declarator) if t.is_punct("["))
            array_dim = join_tokens(declarator[open_index + 1:-1])
            declarator = declarator[:open_index]
        if len(declarator) < 2 or declarator[-1].kind != "id":
            self.error("cannot read the member declared after UPROPERTY", macro)
        name = declarator[-1].text
        if is_bitfield:
            width = tokens[declarator_end + 1:declarator_end + 2]
            if not width or width[0].text != "1":
                self.error("bitfield UPROPERTY '%s' must have a width of 1" % name, macro)
        prop = PropertyDecl(name=name, type=parse_type(declarator[:-1], self.file_name, macro.line), line=macro.line,
                            specifiers=specifiers, comment=macro.comment, access=access, array_dim=array_dim,
                            is_bitfield=is_bitfield, conditions=macro.conditions)
        return prop

    def parse_function(self, owner, access):
        macro, specifiers = self.read_macro_specifiers()
        tokens, _ = self.collect_declaration(is_function=True)
        keywords = []
        while tokens and tokens[0].kind == "id" and tokens[0].text in DECLARATION_KEYWORDS:
            keywords.append(tokens[0].text)
            tokens = tokens[1:]
        while tokens and tokens[0].kind == "id" and tokens[0].text.endswith("_API"):
            tokens = tokens[1:]
        open_index = next((i for i, t in enumerate(tokens) if t.is_punct("(")), -1)
        if open_index < 1 or tokens[open_index - 1].kind != "id":
            self.error("UFUNCTION must be followed by a function declaration", macro)
        name = tokens[open_index - 1].text
        return_tokens = tokens[:open_index - 1]
        if not return_tokens:
            self.error("function '%s' has no return type" % name, macro)
        depth = 0
        close_index = open_index
        for close_index in range(open_index, len(tokens)):
            if tokens[close_index].is_punct("("):
                depth += 1
            elif tokens[close_index].is_punct(")"):
                depth -= 1
                if depth == 0:
                    break
        trailing = [t.text for t in tokens[close_index + 1:]]
        parameters = []
        for part in split_top_level(tokens[open_index + 1:close_index]):
            if [t.text for t in part] == ["void"]:
                continue
            parameters.append(self.read_parameter(part, macro))
        return FunctionDecl(name=name, return_type=parse_type(return_tokens, self.file_name, macro.line),
                            parameters=parameters, line=macro.line, specifiers=specifiers, comment=macro.comment,
                            access=access, is_static="static" in keywords, is_const="const" in trailing,
                            is_virtual="virtual" in keywords or "override" in trailing, conditions=macro.conditions)

    def read_parameter(self, tokens, macro):
        specifiers = []
        if tokens and tokens[0].is_id("UPARAM"):
            depth = 0
            end = 1
            for end in range(1, len(tokens)):
                if tokens[end].is_punct("("):
                    depth += 1
                elif tokens[end].is_punct(")"):
                    depth -= 1
                    if depth == 0:
                        break
            specifiers = parse_specifier_list(tokens[2:end], self.file_name)
            tokens = tokens[end + 1:]
        default = ""
        for index, token in enumerate(tokens):
            if token.is_punct("="):
                default = join_tokens(tokens[index + 1:])
                tokens = tokens[:index]
                break
        if len(tokens) < 2 or tokens[-1].kind != "id":
            self.error("every parameter of a UFUNCTION needs a name", macro)
        return ParameterDecl(name=tokens[-1].text, type=parse_type(tokens[:-1], self.file_name, macro.line),
                             default=default, specifiers=specifiers)

    # Enums

    def parse_enum_declaration(self):
        cursor = self.cursor
        macro, specifiers = self.read_macro_specifiers()
        keyword = cursor.next()
        if keyword.is_id("namespace"):
            name = cursor.expect_id("after 'namespace'")
            cursor.expect_punct("{", "to open namespace '%s'" % name.text)
            if not cursor.accept_id("enum"):
                self.error("namespace '%s' must hold the enum 'Type'" % name.text)
            inner = cursor.expect_id("after 'enum'")
            if inner.text != "Type":
                self.error("the enum in namespace '%s' must be named 'Type'" % name.text, inner)
            decl = EnumDecl(name=name.text, line=name.line, cpp_form="Namespaced", underlying="",
                            specifiers=specifiers, comment=macro.comment)
            if cursor.accept_punct(":"):
                decl.underlying = cursor.expect_id("as the enum's underlying type").text
            self.parse_enumerators(decl)
            cursor.expect_punct("}", "to close namespace '%s'" % name.text)
            cursor.accept_punct(";")
        elif keyword.is_id("enum"):
            form = "Regular"
            if cursor.accept_id("class") or cursor.accept_id("struct"):
                form = "EnumClass"
            name = cursor.expect_id("after 'enum'")
            decl = EnumDecl(name=name.text, line=name.line, cpp_form=form, underlying="", specifiers=specifiers,
                            comment=macro.comment)
            if cursor.accept_punct(":"):
                decl.underlying = cursor.expect_id("as the enum's underlying type").text
            self.parse_enumerators(decl)
        else:
            self.error("expected 'enum' or 'namespace' after UENUM, found '%s'" % keyword.text, keyword)
        if not (len(decl.name) > 1 and decl.name[0] == "E" and decl.name[1].isupper()):
            self.error("enum '%s' has no valid prefix: expected 'E' followed by an upper-case letter" % decl.name)
        self.model.enums.append(decl)

    def parse_enumerators(self, decl):
        cursor = self.cursor
        cursor.expect_punct("{", "to open enum '%s'" % decl.name)
        while True:
            token = cursor.next()
            if token.is_punct("}"):
                break
            if token.is_punct(","):
                continue
            if token.kind != "id":
                self.error("expected an enumerator name in '%s', found '%s'" % (decl.name, token.text), token)
            enumerator = Enumerator(name=token.text, value_text="", line=token.line, comment=token.comment,
                                    conditions=token.conditions)
            if cursor.peek() is not None and cursor.peek().is_id("UMETA"):
                cursor.index += 1
                meta_tokens = cursor.collect_balanced()
                enumerator.metadata = parse_specifier_list(meta_tokens, self.file_name)
            if cursor.accept_punct("="):
                value = []
                depth = 0
                while True:
                    next_token = cursor.peek()
                    if next_token is None:
                        self.error("enum '%s' is not closed" % decl.name)
                    if depth == 0 and (next_token.is_punct(",") or next_token.is_punct("}") or next_token.is_id("UMETA")):
                        break
                    if next_token.is_punct("("):
                        depth += 1
                    elif next_token.is_punct(")"):
                        depth -= 1
                    value.append(cursor.next())
                enumerator.value_text = join_tokens(value)
                if cursor.peek() is not None and cursor.peek().is_id("UMETA"):
                    cursor.index += 1
                    enumerator.metadata += parse_specifier_list(cursor.collect_balanced(), self.file_name)
            decl.enumerators.append(enumerator)
        cursor.accept_punct(";")
        if not decl.enumerators:
            self.error("enum '%s' has no enumerators" % decl.name)


def parse_header(text, file_name, module, module_relative_path, include_path, file_id):
    return HeaderParser(text, file_name, module, module_relative_path, include_path, file_id).parse()
