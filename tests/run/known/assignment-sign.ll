; An assignment used as a value has the type of the destination's address, so what reads it as unsigned casts it to a pointer.
@n = global i32 0
@x = global i32 -8
define i32 @main() {
entry:
  %0 = load i32, i32* @x
  %add = add i32 %0, 4
  store i32 %add, i32* @n
  %shr = lshr i32 %add, 28
  ret i32 %shr
}
