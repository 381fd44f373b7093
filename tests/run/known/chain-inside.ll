; A chain of && whose value is computed with inside of another chain, as in a && (b && c) == d, ends the outer one: refused.
@a = global i32 1
define i32 @main() {
entry:
  %0 = load i32, i32* @a
  %tobool = icmp ne i32 %0, 0
  br i1 %tobool, label %land.rhs, label %land.end3
land.rhs:
  %cmp = icmp slt i32 %0, 5
  br i1 %cmp, label %land.rhs1, label %land.end
land.rhs1:
  %cmp1 = icmp sgt i32 %0, 0
  br label %land.end
land.end:
  %1 = phi i1 [ false, %land.rhs ], [ %cmp1, %land.rhs1 ]
  %ext = zext i1 %1 to i32
  %cmp2 = icmp eq i32 %ext, %0
  br label %land.end3
land.end3:
  %2 = phi i1 [ false, %entry ], [ %cmp2, %land.end ]
  %conv = zext i1 %2 to i32
  ret i32 %conv
}
