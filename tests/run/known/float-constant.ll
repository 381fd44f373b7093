; A float constant prints as one of type double, so the sum is computed in double: x + 2**-27 == x doesn't hold then.
@x = global float 1.000000e+00
define i32 @main() #0 {
entry:
  %0 = load float, float* @x
  %add = fadd float %0, 0x3E40000000000000
  %cmp = fcmp oeq float %add, %0
  %conv = zext i1 %cmp to i32
  ret i32 %conv
}
attributes #0 = { "target-cpu"="pentium4" }
