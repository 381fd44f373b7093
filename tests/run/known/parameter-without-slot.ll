; A parameter that is read without a slot of its name is taken for a variable: &a is returned.
define i32 @f(i32 %a) {
entry:
  ret i32 %a
}
define i32 @main() {
entry:
  %call = call i32 @f(i32 3)
  ret i32 %call
}
