; A chain of && whose value is computed with inside of another chain, as in a && (b && c) == d, ends the outer one: refused.
@a = global i32 1
define i32 @main() {
entry:
  %0 = load i32, i32* @a
  %tobool = icmp ne i32 %0, 0
  br i1 %tobool, label %land.rhs, label %land.end3
land.rhs:
  %1 = load i32, i32* @a
  %cmp = icmp slt i32 %1, 5
  br i1 %cmp, label %land.rhs1, label %land.end
land.rhs1:
  %2 = load i32, i32* @a
  %cmp1 = icmp sgt i32 %2, 0
  br label %land.end
land.end:
  %3 = phi i1 [ false, %land.rhs ], [ %cmp1, %land.rhs1 ]
  %ext = zext i1 %3 to i32
  %4 = load i32, i32* @a
  %cmp2 = icmp eq i32 %ext, %4
  br label %land.end3
land.end3:
  %5 = phi i1 [ false, %entry ], [ %cmp2, %land.end ]
  %conv = zext i1 %5 to i32
  ret i32 %conv
}
