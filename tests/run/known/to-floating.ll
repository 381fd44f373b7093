; sitofp of an i8 and uitofp don't say how the operand is to be read: a char is unsigned, a long signed.
@c = global i8 -1
define i32 @main() {
entry:
  %0 = load i8, i8* @c
  %conv = sitofp i8 %0 to double
  %cmp = fcmp olt double %conv, 0.000000e+00
  %conv1 = zext i1 %cmp to i32
  ret i32 %conv1
}
