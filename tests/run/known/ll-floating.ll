; Under -ll a conversion to a floating type takes the low half of the value only.
@x = global i64 -1
define i32 @main() {
entry:
  %0 = load i64, i64* @x
  %conv = sitofp i64 %0 to double
  %cmp = fcmp olt double %conv, 0.000000e+00
  %conv1 = zext i1 %cmp to i32
  ret i32 %conv1
}
