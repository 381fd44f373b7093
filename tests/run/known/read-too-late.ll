; A value is read where it is used, so behind the call that stood between: n + f() for the sum of the old n. (In the same way the
; calls among the arguments of a call are made in the order that the C compiler likes.)
@n = global i32 1
define i32 @f() {
entry:
  store i32 5, i32* @n
  ret i32 10
}
define i32 @main() {
entry:
  %r = alloca i32
  %0 = load i32, i32* @n
  %call = call i32 @f()
  store i32 %call, i32* %r
  %1 = load i32, i32* %r
  %add = add i32 %0, %1
  ret i32 %add
}
