"""Whole lists of the faults that small pieces of source offer."""

import unittest

from .faults import faults_of


def listed(text):
    return [(fault.kind, text[fault.start:fault.end], fault.text) for fault in faults_of('a.cpp', text)]


class FaultsTest(unittest.TestCase):
    def test_nothing_outside_the_logic(self):
        for text in ('#include "a/b.h"\n', '// if (a < 2) b();\n', '/* x = 1; */\n', 'static_assert(sizeof(a) == 2);\n',
                     'namespace kavr6 {\n}  // namespace kavr6\n', 'using S = A<3, true>;\n',
                     'template <int N = 3>\nvoid F(const T& a, T&& b);\n', 'class A {\n  virtual void F() = 0;\n};\n',
                     'struct A {\n  Label lblA{*this, "lblA"};\n  B(form, "B");\n};\n', 'std::vector<int> F(int a, int b);\n',
                     'constexpr auto k = R"(1 < 2)";\n', 'void F() {\n  const Type a(b);\n  Type* p = q;\n}\n'):
            self.assertEqual(listed(text), [], text)

    def test_numbers(self):
        for number, variants in (('0', ['1']), ('7u', ['8u', '6u', '70u']), ("1'200", ['1201', '1199', '12000', '2200']),
                                 ('0x37', ['0x36', '0x27']), ('0.3', ['0.4', '1.3', '0.3e1']), ('120.F', ['121.0F', '120.0e1F'])):
            self.assertEqual(listed(f'constexpr auto k = {number};\n'), [('constant', number, v) for v in variants])

    def test_statement(self):
        self.assertEqual(listed('void A::F() {\n  if (a.b(c)) d_->Set(true);\n  ++e;\n}\n'), [
            ('sign', '++', '--'),
            ('statement left out', 'd_->Set(true);', '{}'),
            ('statement left out', '++e;', '{}'),
            ('condition turned', 'a.b(c)', '!(a.b(c))'),
            ('truth', 'true', 'false')])

    def test_expression(self):
        self.assertEqual(listed('int F() { return a < b && -c == d - e ? Call(f, g) : h; }\n'), [
            ('comparison', '<', '<='),
            ('comparison', '&&', '||'),
            ('comparison', '==', '!='),
            ('sign', '-', '+'),
            ('sign', '-', ''),
            ('neighbours exchanged', 'f, g', 'g, f'),
            ('condition turned', 'Call(f, g) : h', 'h : Call(f, g)')])

    def test_table(self):
        self.assertEqual(listed('constexpr std::array k{\n    Row{"\\u00B5z", \'.\'},\n    Row{"", \'\\0\'},\n};\n'), [
            ('neighbours exchanged', 'Row{"\\u00B5z", \'.\'},\n    Row{"", \'\\0\'}',
             'Row{"", \'\\0\'},\n    Row{"\\u00B5z", \'.\'}'),
            ('character', '"\\u00B5z"', '"\\u00B5a"'),
            ('character', "'.'", "','"),
            ('character', '""', '"x"')])

    def test_equal_lines_have_keys_of_their_own(self):
        keys = [fault.key for fault in faults_of('a.cpp', 'int a =\n1;\nint b =\n1;\n')]
        self.assertEqual(len(set(keys)), 6)


if __name__ == '__main__':
    unittest.main()
